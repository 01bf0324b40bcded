# The converter as WebAssembly, for the page torvel-migrate.html and for editors: src/browser has what it exports. The
# preset "wasm" builds it with Debian's Emscripten.

# What of torvel-migrate it has: finding and converting programs, and the report. Not what keeps a store and outputs on a
# disk.
set(parts any-case-source content-hash discovery explanations file-hashes finding-names finding-order
    folder-list-posix found-program html-detail html-folder html-help html-packing html-page html-summary html-tables
    in-threads include-circles include-graph include-scan json-writer machine-settings packed-findings path-pattern
    places program-conversion project recorded-source reference-entries replaced-file report-csv report-json
    report-junit report-sarif report-totals site-rows source-walk text-decoding text-layout text-lines)
list(TRANSFORM parts PREPEND src/migrate/)
list(TRANSFORM parts APPEND .cpp)
file(GLOB browser_sources CONFIGURE_DEPENDS src/browser/*.cpp)

# Headers that are the same for every system stand among those of this one.
set(third_party "${PROJECT_BINARY_DIR}/third-party")
foreach(header fmt nlohmann toml++ xxhash.h xxh3.h)
    file(COPY "/usr/include/${header}" DESTINATION "${third_party}")
endforeach()

include(cmake/fmt.cmake)

# zlib's source comes from Debian by script/setup.
enable_language(C)
set(zlib "${PROJECT_SOURCE_DIR}/build/zlib")
add_library(zlib_static STATIC "${zlib}/adler32.c" "${zlib}/crc32.c" "${zlib}/deflate.c" "${zlib}/trees.c"
            "${zlib}/zutil.c")
target_include_directories(zlib_static SYSTEM PUBLIC "${zlib}")
target_compile_options(zlib_static PRIVATE -w)

# The page of reports is handed over by who has it: the WebAssembly has none inside.
set(embedded_report_page "${PROJECT_BINARY_DIR}/report-page.cpp")
add_custom_command(
    OUTPUT "${embedded_report_page}"
    COMMAND ${CMAKE_COMMAND} "-DPAGE=" "-DOUTPUT=${embedded_report_page}"
            -P ${PROJECT_SOURCE_DIR}/cmake/embed-report-page.cmake
    DEPENDS cmake/embed-report-page.cmake
    VERBATIM)

add_library(torvel_migrate_parts STATIC ${parts} "${migrate_pages}" "${embedded_report_page}")
target_include_directories(torvel_migrate_parts SYSTEM PUBLIC "${third_party}")
target_compile_definitions(torvel_migrate_parts PUBLIC "TORVEL_VERSION=\"${PROJECT_VERSION}\"")
target_link_libraries(torvel_migrate_parts PUBLIC torvel_converter zlib_static fmt_text)

add_executable(torvel-wasm ${browser_sources})
set_target_properties(torvel-wasm PROPERTIES OUTPUT_NAME converter)
target_link_libraries(torvel-wasm PRIVATE torvel_migrate_parts)

# One function that makes an instance from bytes that it is given: nothing is fetched. What is made for "web" asks for
# nothing of a browser then, and works in a worker and in node too. The files of programs are those of
# a file system in memory. A tab that asks for more than half of what 32 bits reach is closed by some browsers.
set(wasm_options
    -sMODULARIZE=1 -sEXPORT_NAME=makeConverter -sENVIRONMENT=web -sNO_EXIT_RUNTIME=1 -sINVOKE_RUN=0
    -sFILESYSTEM=1 -sFORCE_FILESYSTEM=1 -sALLOW_MEMORY_GROWTH=1 -sINITIAL_MEMORY=32MB -sMAXIMUM_MEMORY=1GB
    -sTOTAL_STACK=4MB -sSTRICT=1 -sDYNAMIC_EXECUTION=0 -sINCOMING_MODULE_JS_API=[wasmBinary,print,printErr]
    -sEXPORTED_RUNTIME_METHODS=[FS] -sEXPORTED_FUNCTIONS=[_malloc,_free] --no-entry)
target_link_options(torvel-wasm PRIVATE ${wasm_options})

# Emscripten's own program for node needs Debian's modules, which a node of others does not look for.
set_target_properties(torvel-wasm PROPERTIES RULE_LAUNCH_LINK
                      "${CMAKE_COMMAND} -E env NODE_PATH=/usr/share/nodejs")

# A million numbers, to be held against those of other builds.
add_executable(real-text-digests EXCLUDE_FROM_ALL tests/wasm/real-text-digests.cpp
               tests/support/real-text-samples.cpp)
target_link_libraries(real-text-digests PRIVATE torvel_converter)
target_link_options(real-text-digests PRIVATE -sENVIRONMENT=node -sSINGLE_FILE=1 -sEXIT_RUNTIME=1
                    -sALLOW_MEMORY_GROWTH=1)
set_target_properties(real-text-digests PROPERTIES RULE_LAUNCH_LINK
                      "${CMAKE_COMMAND} -E env NODE_PATH=/usr/share/nodejs")
