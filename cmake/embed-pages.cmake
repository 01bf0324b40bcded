# Writes the pages of the documentation that the program shows into a C++ file:
#   cmake -D FOLDER=docs -D OUTPUT=pages.cpp -P embed-pages.cmake
# A compiler need not take literals of any length, so a page becomes several.

function(append_page name file)
    file(READ "${file}" text)
    string(LENGTH "${text}" length)
    set(begin 0)
    string(APPEND content "constexpr std::string_view ${name}Pieces[] = {\n")
    while(begin LESS length)
        string(SUBSTRING "${text}" ${begin} 8000 piece)
        # Cut behind a line, not within a character.
        string(FIND "${piece}" "\n" last REVERSE)
        math(EXPR size "${last} + 1")
        string(SUBSTRING "${piece}" 0 ${size} piece)
        string(APPEND content "R\"page(${piece})page\",\n")
        math(EXPR begin "${begin} + ${size}")
    endwhile()
    string(APPEND content "};\n\n")
    set(content "${content}" PARENT_SCOPE)
endfunction()

set(content "#include \"src/migrate/embedded-pages.h\"\n\nnamespace torvel::migrate {\n\n")
append_page(messages "${FOLDER}/messages.md")
append_page(checks "${FOLDER}/checks.md")
append_page(plant "${FOLDER}/plant-findings.md")
foreach(name IN ITEMS messages checks plant)
    string(APPEND content
           "std::span<const std::string_view> ${name}Page() {\n    return ${name}Pieces;\n}\n\n")
endforeach()
string(APPEND content "}  // namespace torvel::migrate\n")
file(WRITE "${OUTPUT}" "${content}")
