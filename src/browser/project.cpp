// A project is opened, and its programs are found.

#include <stdexcept>

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

/// The request has: the project's folder; its project file, which is in it, empty for none; then what counts over the file: the sources,
/// the patterns of programs, the parameter file, each empty for what the file says; the limits of a program's text in
/// bytes and of the nesting of an expression, 0 for those of the command line.
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
    if (const std::uint64_t bytes = request.number(); bytes != 0) {
        limits.programText = bytes;
    }
    if (const std::uint64_t nesting = request.number(); nesting != 0) {
        limits.expressionNesting = static_cast<unsigned>(nesting);
    }
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
