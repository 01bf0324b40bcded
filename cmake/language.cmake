# What a language server asks of the converter. With Emscripten it is the module that the server loads.
file(GLOB language_sources CONFIGURE_DEPENDS src/language/*.cpp)
list(FILTER language_sources EXCLUDE REGEX "/src/language/exports\\.cpp$")
add_library(torvel_language STATIC ${language_sources})
target_link_libraries(torvel_language PUBLIC torvel_migrate)
