#include "src/migrate/explanations.h"

#include <algorithm>
#include <span>
#include <utility>

#include "src/migrate/embedded-pages.h"
#include "src/migrate/text-layout.h"

namespace torvel::migrate {

namespace {

constexpr std::string_view fence = "```";

/// The next line, without its end, which is taken off `text`.
std::string_view nextLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

/// `[text](link)` as the text alone.
std::string withoutLinks(std::string_view line) {
    std::string result;
    bool isCode = false;
    while (!line.empty()) {
        isCode = isCode != (line[0] == '`');
        const std::size_t middle =
            isCode || line[0] != '[' ? std::string_view::npos : line.find("](");
        const std::size_t end = middle == std::string_view::npos ? middle : line.find(')', middle);
        if (end == std::string_view::npos) {
            result += line[0];
            line.remove_prefix(1);
        } else {
            result += line.substr(1, middle - 1);
            line.remove_prefix(end + 1);
        }
    }
    return result;
}

void trimLines(std::string& text) {
    text.erase(0, std::min(text.find_first_not_of('\n'), text.size()));
    text.erase(text.find_last_not_of('\n') + 1);
}

/// Reads a page line by line.
class PageReader {
public:
    void read(std::string_view line) {
        if (line.starts_with(fence)) {
            isInExample_ = !isInExample_;
        } else if (!isInExample_ && readHeading(line)) {
            return;
        }
        if (!isInExample_ && isComment(line)) {
            return;
        }
        if (isEntry_) {
            entry_.body += isInExample_ ? std::string(line) : withoutLinks(line);
            entry_.body += '\n';
        } else {
            readSectionText(line);
        }
    }

    Explanations entries() {
        endEntry();
        return std::move(entries_);
    }

private:
    bool readHeading(std::string_view line) {
        if (line.starts_with("### ")) {
            endEntry();
            entry_.title = line.substr(4);
            entry_.section = section_;
            entry_.sectionText = sectionText_;
            isEntry_ = true;
            return true;
        }
        if (line.starts_with("## ")) {
            endEntry();
            section_ = line.substr(3);
            sectionText_.clear();
            isSectionTextComplete_ = false;
            return true;
        }
        return false;
    }

    /// Comments, and anchors, the first of which tells the code.
    bool isComment(std::string_view line) {
        constexpr std::string_view anchor = "<a id=\"";
        if (line.starts_with(anchor)) {
            line.remove_prefix(anchor.size());
            code_ = line.substr(0, line.find('"'));
            return true;
        }
        return line.starts_with("<!--");
    }

    void readSectionText(std::string_view line) {
        if (line.empty()) {
            isSectionTextComplete_ = !sectionText_.empty();
        } else if (!isSectionTextComplete_) {
            sectionText_ += withoutLinks(line) + '\n';
        }
    }

    void endEntry() {
        if (isEntry_ && !code_.empty()) {
            trimLines(entry_.body);
            trimLines(entry_.sectionText);
            entries_.emplace(code_, std::move(entry_));
        }
        entry_ = {};
        code_.clear();
        isEntry_ = false;
    }

    Explanations entries_;
    Explanation entry_;
    std::string code_;
    std::string section_;
    std::string sectionText_;
    bool isEntry_ = false;
    bool isInExample_ = false;
    bool isSectionTextComplete_ = false;
};

/// A word or a sentence without the signs for code and emphasis.
std::string withoutEmphasis(std::string_view text) {
    std::string result;
    bool isCode = false;
    for (const char c : text) {
        if (c == '`') {
            isCode = !isCode;
        } else if (isCode || c != '*') {
            result += c;
        }
    }
    return result;
}

/// What stands above an example, from what stands behind its fence.
std::string exampleHeading(std::string_view info) {
    const std::string_view language = info.substr(0, info.find(' '));
    const std::string_view rest = info.substr(std::min(language.size() + 1, info.size()));
    const std::string_view name = rest.substr(0, rest.find(" escaped"));
    std::string heading(language);
    if (language == "brannic") {
        heading = "Brannic";
    } else if (language == "torvel") {
        heading = "Torvel";
    } else if (language == "checks") {
        heading = "Findings";
    } else if (language == "command") {
        heading = "Command line";
    } else if (language == "xml") {
        heading = "Parameter file";
    }
    if (!name.empty()) {
        heading += ", ";
        heading += name;
    }
    return heading + (rest.size() == name.size() ? ":" : " (\\xHH is a byte):");
}

/// Gathers the lines of paragraphs, items and examples.
class PlainText {
public:
    explicit PlainText(std::size_t width) : width_(width) {}

    void read(std::string_view line) {
        if (line.starts_with(fence)) {
            endParagraph();
            isInExample_ = !isInExample_;
            if (isInExample_) {
                text_ += exampleHeading(line.substr(fence.size())) + '\n';
            } else {
                text_ += '\n';
            }
        } else if (isInExample_) {
            text_ += line.empty() ? "\n" : "    " + std::string(line) + '\n';
        } else if (line.empty()) {
            const bool isBehindText = !paragraph_.empty();
            endParagraph();
            text_ += isBehindText ? "\n" : "";
        } else if (line.starts_with('|')) {
            endParagraph();
            text_ += withoutEmphasis(line) + '\n';
        } else {
            if (line.starts_with("- ")) {
                endParagraph();
            }
            paragraph_ += line;
            paragraph_ += ' ';
        }
    }

    std::string text() {
        endParagraph();
        trimLines(text_);
        return text_ + '\n';
    }

private:
    void endParagraph() {
        if (paragraph_.empty()) {
            return;
        }
        const bool isItem = paragraph_.starts_with("- ");
        const std::string plain = withoutEmphasis(paragraph_).substr(isItem ? 2 : 0);
        text_ += wrapped(plain, width_, isItem ? "- " : "", isItem ? "  " : "");
        paragraph_.clear();
    }

    std::size_t width_;
    std::string text_;
    std::string paragraph_;
    bool isInExample_ = false;
};

void addEntries(std::span<const std::string_view> pieces, Explanations& all) {
    std::string page;
    for (const std::string_view piece : pieces) {
        page += piece;
    }
    all.merge(explanationsOf(page));
}

}  // namespace

Explanations explanationsOf(std::string_view page) {
    PageReader reader;
    while (!page.empty()) {
        reader.read(nextLine(page));
    }
    return reader.entries();
}

const Explanations& explanations() {
    static const Explanations all = [] {
        Explanations entries;
        addEntries(messagesPage(), entries);
        addEntries(checksPage(), entries);
        addEntries(plantPage(), entries);
        return entries;
    }();
    return all;
}

std::string plainMarkdown(std::string_view markdown, std::size_t width) {
    PlainText text(width);
    while (!markdown.empty()) {
        text.read(nextLine(markdown));
    }
    return text.text();
}

}  // namespace torvel::migrate
