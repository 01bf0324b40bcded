# The pages of the documentation that torvel-migrate shows, as a source file.
set(migrate_pages "${PROJECT_BINARY_DIR}/migrate-pages.cpp")
add_custom_command(
    OUTPUT "${migrate_pages}"
    COMMAND ${CMAKE_COMMAND} -D FOLDER=${PROJECT_SOURCE_DIR}/docs -D OUTPUT=${migrate_pages}
            -P ${PROJECT_SOURCE_DIR}/cmake/embed-pages.cmake
    DEPENDS docs/messages.md docs/checks.md docs/plant-findings.md cmake/embed-pages.cmake
    VERBATIM)
