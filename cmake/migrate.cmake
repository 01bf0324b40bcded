# torvel-migrate: converts the programs of a plant with the library of the converter. What it uses comes from
# Debian's packages.
find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)
find_library(SQLITE3_LIBRARY NAMES $<$<BOOL:${TORVEL_STATIC}>:libsqlite3.a> sqlite3 REQUIRED)

# Libraries that are headers only, and those that are linked.
add_library(migrate_libraries INTERFACE)
target_compile_definitions(migrate_libraries INTERFACE FMT_HEADER_ONLY)
target_link_libraries(migrate_libraries INTERFACE "${SQLITE3_LIBRARY}" ZLIB::ZLIB Threads::Threads)

file(GLOB_RECURSE migrate_sources CONFIGURE_DEPENDS src/migrate/*.cpp)
list(FILTER migrate_sources EXCLUDE REGEX "/src/migrate/main\\.cpp$")
if(WIN32)
    list(FILTER migrate_sources EXCLUDE REGEX "-posix\\.cpp$")
else()
    list(FILTER migrate_sources EXCLUDE REGEX "-win32\\.cpp$")
endif()
add_library(torvel_migrate STATIC ${migrate_sources})
target_link_libraries(torvel_migrate PUBLIC torvel_converter migrate_libraries)
target_compile_definitions(torvel_migrate PRIVATE "TORVEL_VERSION=\"${PROJECT_VERSION}\"")

add_executable(torvel-migrate src/migrate/main.cpp)
target_link_libraries(torvel-migrate PRIVATE torvel_migrate)
if(TORVEL_STATIC AND TARGET tinyxml2_static AND NOT MSVC AND NOT APPLE)
    target_link_options(torvel-migrate PRIVATE -static)
endif()
