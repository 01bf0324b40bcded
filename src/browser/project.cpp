// A project is opened, and its programs are found.

#include <stdexcept>
#include <type_traits>

#include "src/browser/exchange.h"
#include "src/browser/session.h"
#include "src/migrate/json-writer.h"
#include "src/migrate/site-rows.h"

namespace torvel::browser {

namespace {

using migrate::Discovery;
using migrate::JsonWriter;
using migrate::Project;

std::vector<std::string> textsOf(Request& request) {
    std::vector<std::string> texts(static_cast<std::size_t>(request.number()));
    for (std::string& text : texts) {
        text = request.text();
    }
    return texts;
}

/// False: no limit is called so.
bool setLimit(Limits& limits, std::string_view name, std::uint64_t value) {
    const auto set = [value](auto& limit) {
        limit = static_cast<std::remove_reference_t<decltype(limit)>>(value);
        return true;
    };
    return name == "includeDepth"        ? set(limits.includeDepth)
           : name == "includedFiles"     ? set(limits.includedFiles)
           : name == "defineExpansion"   ? set(limits.defineExpansion)
           : name == "composedValue"     ? set(limits.composedValue)
           : name == "lineExpansion"     ? set(limits.lineExpansion)
           : name == "programText"       ? set(limits.programText)
           : name == "expressionNesting" ? set(limits.expressionNesting)
           : name == "parameterFile"     ? set(limits.parameterFile)
           : name == "elementAttributes" ? set(limits.elementAttributes)
           : name == "axisName"          ? set(limits.axisName)
                                         : false;
}

void readLimits(Request& request, Limits& limits) {
    for (std::uint64_t count = request.number(); count > 0; --count) {
        const std::string name = request.text();
        if (!setLimit(limits, name, request.number())) {
            throw std::runtime_error("There is no limit '" + name + "'.");
        }
    }
}

/// The request has: the project's folder; its project file, empty for none, in whose folder the project is then; then what
/// counts over the file: the sources, the patterns of programs and the parameter file, each empty for what the file says;
/// 1, if outputs keep the extensions of their programs; the names of members of Limits that have other values, with these.
Project projectOf(Request& request, Limits& limits) {
    const NativePath folder = canonicalPath(nativePath(request.text()));
    const std::string file = request.text();
    Project project;
    if (file.empty()) {
        project.folder = folder;
    } else {
        project = migrate::readProject(nativePath(file));
    }
    if (std::vector<std::string> sources = textsOf(request); !sources.empty()) {
        project.sources = std::move(sources);
    }
    if (std::vector<std::string> programs = textsOf(request); !programs.empty()) {
        project.programs = std::move(programs);
    }
    if (std::string parameters = request.text(); !parameters.empty()) {
        project.parameters = std::move(parameters);
    }
    project.keepExtension = project.keepExtension || request.number() != 0;
    readLimits(request, limits);
    return project;
}

void writePrograms(const Discovery& discovery, JsonWriter& json) {
    json.name("programs").beginList();
    for (const migrate::FoundProgram& program : discovery.programs) {
        json.beginObject()
            .member("path", program.program)
            .member("output", program.output)
            .member("machine", program.machine)
            .member("parameters", program.parameters)
            .endObject();
    }
    json.endList();
}

void writeMissing(const Discovery& discovery, JsonWriter& json) {
    json.name("missing").beginList();
    for (const migrate::MissingInclude& include : discovery.missing) {
        json.beginObject()
            .member("file", include.file)
            .member("line", std::uint64_t{include.line})
            .member("written", include.written)
            .member("path", include.target)
            .endObject();
    }
    json.endList();
}

std::string foundJson(const Session& session) {
    std::string text;
    const migrate::TextSink sink = [&text](std::string_view piece) { text += piece; };
    JsonWriter json(sink, migrate::JsonLayout::compact);
    const Discovery& discovery = session.discovery;
    json.beginObject();
    writePrograms(discovery, json);
    json.name("parts").beginList();
    for (const std::string& part : discovery.parts) {
        json.text(part);
    }
    json.endList().name("notices").beginList();
    for (const migrate::Notice& notice : discovery.notices) {
        json.beginObject().member("path", notice.path).member("text", notice.text).endObject();
    }
    json.endList();
    writeMissing(discovery, json);
    json.name("faults").beginList();
    for (const auto& [parameters, settings] : session.settings) {
        if (!settings.fault.empty()) {
            json.beginObject()
                .member("path", parameters)
                .member("text", settings.fault)
                .endObject();
        }
    }
    json.endList().endObject().finish();
    return text;
}

}  // namespace

}  // namespace torvel::browser

/// Opens the project and finds its programs. Leaves them behind as JSON, with what is told of the files.
TORVEL_EXPORT int torvelOpenProject(const char* bytes, std::size_t size) {
    using namespace torvel::browser;
    return answered([&] {
        Request request(bytes, size);
        Session& session = newSession();
        torvel::migrate::RunOptions& options = session.options;
        session.project = projectOf(request, options.limits);
        options.threads = 1;
        options.source = anyCaseSource(torvel::fileSystemSource(), session.listings,
                                       [](const torvel::migrate::OtherCase&) {});
        options.reference = referenceRowsOf(session.project.reference);
        options.constants = siteConstantsOf(session.project.reference);
        session.discovery = findPrograms(session.project, options.threads);
        session.settings = settingsOfMachines(session.project, session.discovery, options);
        return foundJson(session);
    });
}
