// Tarjan's strongly connected components, with a stack of its own: chains of includes may be long.

#include <algorithm>

#include "src/migrate/include-graph.h"

namespace torvel::migrate {

namespace {

struct Visit {
    std::uint32_t file = 0;
    std::size_t nextEdge = 0;
};

struct Circles {
    explicit Circles(const IncludeGraph& files)
        : graph(files), order(files.size()), low(files.size()), isOpen(files.size()) {}

    const IncludeGraph& graph;
    /// From 1, in the order of the visits; 0: not visited.
    std::vector<std::uint32_t> order;
    std::vector<std::uint32_t> low;
    std::vector<bool> isOpen;
    std::vector<std::uint32_t> open;
    std::vector<Visit> visits;
    std::uint32_t count = 0;
    std::vector<std::vector<std::uint32_t>> found;

    void enter(std::uint32_t file) {
        order[file] = low[file] = ++count;
        isOpen[file] = true;
        open.push_back(file);
        visits.push_back({file, 0});
    }

    void followEdge(std::uint32_t from, const IncludeEdge& edge) {
        if (!edge.file) {
            return;
        }
        if (order[*edge.file] == 0) {
            enter(*edge.file);
        } else if (isOpen[*edge.file]) {
            low[from] = std::min(low[from], order[*edge.file]);
        }
    }

    bool includesItself(std::uint32_t file) const {
        const auto& includes = graph[file].includes;
        return std::any_of(includes.begin(), includes.end(),
                           [&](const IncludeEdge& edge) { return edge.file == file; });
    }

    void leave(std::uint32_t file) {
        visits.pop_back();
        if (!visits.empty()) {
            const std::uint32_t from = visits.back().file;
            low[from] = std::min(low[from], low[file]);
        }
        if (low[file] != order[file]) {
            return;
        }
        std::vector<std::uint32_t> component;
        do {
            component.push_back(open.back());
            isOpen[open.back()] = false;
            open.pop_back();
        } while (component.back() != file);
        if (component.size() > 1 || includesItself(file)) {
            std::sort(component.begin(), component.end());
            found.push_back(std::move(component));
        }
    }

    void visitFrom(std::uint32_t start) {
        enter(start);
        while (!visits.empty()) {
            Visit& visit = visits.back();
            const std::uint32_t file = visit.file;
            if (visit.nextEdge == graph[file].includes.size()) {
                leave(file);
            } else {
                followEdge(file, graph[file].includes[visit.nextEdge++]);
            }
        }
    }
};

}  // namespace

std::vector<std::vector<std::uint32_t>> includeCircles(const IncludeGraph& graph) {
    Circles circles(graph);
    for (std::uint32_t file = 0; file < graph.size(); ++file) {
        if (circles.order[file] == 0) {
            circles.visitFrom(file);
        }
    }
    std::sort(circles.found.begin(), circles.found.end());
    return circles.found;
}

}  // namespace torvel::migrate
