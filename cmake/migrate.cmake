# torvel-migrate: converts the programs of a plant with the library of the converter. What it uses comes from
# Debian's packages.
find_package(Threads REQUIRED)
set(ZLIB_USE_STATIC_LIBS ${TORVEL_STATIC})
find_package(ZLIB REQUIRED)

# Libraries that are headers only, and those that are linked.
add_library(migrate_libraries INTERFACE)
target_link_libraries(migrate_libraries INTERFACE ZLIB::ZLIB Threads::Threads)
if(CMAKE_CROSSCOMPILING)
    # What is headers only is the same for every system, but stands among the headers of this one. SQLite is
    # made of its source, which script/setup puts there.
    set(third_party "${PROJECT_BINARY_DIR}/third-party")
    foreach(header CLI dtl fmt nlohmann toml++ xxhash.h xxh3.h)
        file(COPY "/usr/include/${header}" DESTINATION "${third_party}")
    endforeach()
    enable_language(C)
    add_library(sqlite3 STATIC "${PROJECT_SOURCE_DIR}/build/sqlite/sqlite3.c")
    target_include_directories(sqlite3 SYSTEM PUBLIC "${PROJECT_SOURCE_DIR}/build/sqlite")
    target_compile_definitions(sqlite3 PRIVATE SQLITE_OMIT_LOAD_EXTENSION SQLITE_DQS=0)
    target_compile_options(sqlite3 PRIVATE -w)
    target_include_directories(migrate_libraries SYSTEM INTERFACE "${third_party}")
    # So is LZ4.
    file(GLOB lz4_sources "${PROJECT_SOURCE_DIR}/build/lz4/lib/*.c")
    add_library(lz4 STATIC ${lz4_sources})
    target_include_directories(lz4 SYSTEM PUBLIC "${PROJECT_SOURCE_DIR}/build/lz4")
    target_compile_options(lz4 PRIVATE -w)
    target_link_libraries(migrate_libraries INTERFACE sqlite3 lz4)
else()
    set(third_party)
    foreach(library sqlite3 lz4)
        set(names ${library})
        if(TORVEL_STATIC)
            list(PREPEND names lib${library}.a)
        endif()
        find_library(TORVEL_${library} NAMES ${names} REQUIRED)
        target_link_libraries(migrate_libraries INTERFACE "${TORVEL_${library}}")
    endforeach()
    target_link_libraries(migrate_libraries INTERFACE ${CMAKE_DL_LIBS} m)
endif()
include(cmake/fmt.cmake)
target_link_libraries(migrate_libraries INTERFACE fmt_text)

file(GLOB_RECURSE migrate_sources CONFIGURE_DEPENDS src/migrate/*.cpp)
list(FILTER migrate_sources EXCLUDE REGEX "/src/migrate/main\\.cpp$")
if(WIN32)
    list(FILTER migrate_sources EXCLUDE REGEX "-posix\\.cpp$")
else()
    list(FILTER migrate_sources EXCLUDE REGEX "-win32\\.cpp$")
endif()
# The page of `report --html`, which script/build-web makes. It can come and go between two builds.
set(TORVEL_REPORT_PAGE "${PROJECT_SOURCE_DIR}/build/web/report-page.html" CACHE FILEPATH
    "The page of torvel-migrate report --html; without it the program says that it has none")
file(GLOB report_page CONFIGURE_DEPENDS "${TORVEL_REPORT_PAGE}")
set(embedded_report_page "${PROJECT_BINARY_DIR}/report-page.cpp")
add_custom_command(
    OUTPUT "${embedded_report_page}"
    COMMAND ${CMAKE_COMMAND} "-DPAGE=${report_page}" "-DOUTPUT=${embedded_report_page}"
            -P ${PROJECT_SOURCE_DIR}/cmake/embed-report-page.cmake
    DEPENDS ${report_page} cmake/embed-report-page.cmake
    VERBATIM)

add_library(torvel_migrate STATIC ${migrate_sources} "${migrate_pages}" "${embedded_report_page}")
target_link_libraries(torvel_migrate PUBLIC torvel_converter migrate_libraries)
target_compile_definitions(torvel_migrate PRIVATE "TORVEL_VERSION=\"${PROJECT_VERSION}\"")
# Nearly all of the companion's time is the converter's, which is optimised as a whole. Were the rest so too, linking
# would take longer than all else of a build.
set_target_properties(torvel_migrate PROPERTIES INTERPROCEDURAL_OPTIMIZATION OFF)
# GCC 12 takes `"text" + string` for a copy onto itself.
target_compile_options(torvel_migrate PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
# What is read once a run goes through large templates of libraries: made small, it compiles in a third of the time.
set_source_files_properties(src/migrate/options.cpp src/migrate/project.cpp src/migrate/baseline.cpp PROPERTIES
    COMPILE_OPTIONS "$<$<AND:$<CONFIG:Release>,$<NOT:$<CXX_COMPILER_ID:MSVC>>>:-Os>")

add_executable(torvel-migrate src/migrate/main.cpp)
target_link_libraries(torvel-migrate PRIVATE torvel_migrate)
if(TORVEL_STATIC AND TARGET tinyxml2_static AND NOT MSVC AND NOT APPLE)
    target_link_options(torvel-migrate PRIVATE -static)
endif()
