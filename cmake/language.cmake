# What a language server asks of the converter.
file(GLOB language_sources CONFIGURE_DEPENDS src/language/*.cpp)
if(NOT EMSCRIPTEN)
    add_library(torvel_language STATIC ${language_sources})
    target_link_libraries(torvel_language PUBLIC torvel_migrate)
    return()
endif()

# The module that the server of editors/language-server has inside. Node.js shows it the files of the machine.
add_executable(torvel-language ${language_sources})
set_target_properties(torvel-language PROPERTIES OUTPUT_NAME language)
target_link_libraries(torvel-language PRIVATE torvel_migrate_parts)
target_link_options(
    torvel-language PRIVATE
    -sMODULARIZE=1 -sEXPORT_NAME=makeConverter -sENVIRONMENT=node -sNO_EXIT_RUNTIME=1 -sINVOKE_RUN=0
    -sFORCE_FILESYSTEM=1 -sALLOW_MEMORY_GROWTH=1 -sINITIAL_MEMORY=32MB -sMAXIMUM_MEMORY=2GB -sTOTAL_STACK=8MB
    -sNODEJS_CATCH_EXIT=0 -sNODEJS_CATCH_REJECTION=0 -sEXPORTED_RUNTIME_METHODS=[FS]
    -sEXPORTED_FUNCTIONS=[_malloc,_free] -lnodefs.js --no-entry)
set_target_properties(torvel-language PROPERTIES RULE_LAUNCH_LINK
                      "${CMAKE_COMMAND} -E env NODE_PATH=/usr/share/nodejs")
