# What is given away: script/package makes the packages of the presets "release" and "windows" from what is
# installed here.
include(GNUInstallDirs)

# The program is the same wherever it is built.
if(NOT MSVC)
    target_compile_options(torvel_options INTERFACE
                           "$<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>")
endif()

# Notices of what becomes part of the program, from the Debian packages that it comes from.
string(REGEX MATCH "^[0-9]+" compiler_version "${CMAKE_CXX_COMPILER_VERSION}")
set(notices
    tinyxml2.txt /usr/share/doc/libtinyxml2-dev/copyright
    GPL-3.txt /usr/share/common-licenses/GPL-3)
if(WIN32)
    set(program_directory .)
    set(document_directory .)
    set(editors_directory editors)
    set(page_directory .)
    list(APPEND notices
         gcc-runtime.txt /usr/share/doc/gcc-mingw-w64-x86-64-posix/copyright
         mingw-w64-runtime.txt /usr/share/doc/mingw-w64-x86-64-dev/copyright)
else()
    set(program_directory ${CMAKE_INSTALL_BINDIR})
    set(document_directory ${CMAKE_INSTALL_DATADIR}/doc/brannictotorvel64)
    set(editors_directory ${CMAKE_INSTALL_DATADIR}/brannictotorvel64/editors)
    set(page_directory ${CMAKE_INSTALL_DATADIR}/brannictotorvel64)
    list(APPEND notices
         gcc-runtime.txt /usr/share/doc/libstdc++-${compiler_version}-dev/copyright
         glibc.txt /usr/share/doc/libc6-dev/copyright
         LGPL-2.1.txt /usr/share/common-licenses/LGPL-2.1)
endif()
if(TORVEL_BUILD_MIGRATE)
    list(APPEND notices
         CLI11.txt /usr/share/doc/libcli11-dev/copyright
         dtl.txt /usr/share/doc/libdtl-dev/copyright
         fmt.txt /usr/share/doc/libfmt-dev/copyright
         lz4.txt /usr/share/doc/liblz4-dev/copyright
         nlohmann-json.txt /usr/share/doc/nlohmann-json3-dev/copyright
         sqlite.txt /usr/share/doc/libsqlite3-dev/copyright
         tomlplusplus.txt /usr/share/doc/libtomlplusplus-dev/copyright
         xxHash.txt /usr/share/doc/libxxhash-dev/copyright
         zlib.txt /usr/share/doc/zlib1g-dev/copyright)
    if(report_page)
        list(APPEND notices preact.txt "${PROJECT_SOURCE_DIR}/web/node_modules/preact/LICENSE")
    endif()
endif()
while(notices)
    list(POP_FRONT notices name source)
    if(EXISTS "${source}")
        install(FILES "${source}" DESTINATION ${document_directory}/licences RENAME "${name}")
    endif()
endwhile()

install(TARGETS BrannicToTorvel64 RUNTIME DESTINATION ${program_directory})
if(TORVEL_BUILD_MIGRATE)
    install(TARGETS torvel-migrate RUNTIME DESTINATION ${program_directory})
endif()
install(FILES README.md DESTINATION ${document_directory})
install(DIRECTORY docs examples DESTINATION ${document_directory}
        FILES_MATCHING PATTERN "*.md" PATTERN "*.pgm" PATTERN "*.prg" PATTERN "*.inc" PATTERN "*.xml"
        PATTERN "*.toml" PATTERN "*.json")
# script/build-web makes the page that converts in a browser, where npm and Emscripten can be had.
set(browser_page "${PROJECT_SOURCE_DIR}/build/web/torvel-migrate.html")
if(TORVEL_BUILD_MIGRATE)
    install(FILES "${browser_page}" DESTINATION ${page_directory} OPTIONAL)
endif()

# script/build-editors packs the extension, where npm can be had.
install(DIRECTORY editors/vim editors/notepad++ DESTINATION ${editors_directory})
install(FILES build/editors/brannic-torvel-${PROJECT_VERSION}.vsix DESTINATION ${editors_directory} OPTIONAL)
if(WIN32)
    # Texts for the editors and the command interpreter of Windows.
    set(text_directory "${PROJECT_BINARY_DIR}/packaging")
    configure_file(packaging/windows/README.txt "${text_directory}/README.txt"
                   @ONLY NEWLINE_STYLE CRLF)
    configure_file(packaging/windows/convert.cmd "${text_directory}/convert.cmd"
                   @ONLY NEWLINE_STYLE CRLF)
    configure_file(LICENSE "${text_directory}/LICENSE.txt" @ONLY NEWLINE_STYLE CRLF)
    install(FILES "${text_directory}/README.txt" "${text_directory}/convert.cmd"
            "${text_directory}/LICENSE.txt" DESTINATION .)
else()
    install(FILES LICENSE DESTINATION ${document_directory})
    find_program(GZIP gzip)
    set(manual_pages BrannicToTorvel64.1)
    if(TORVEL_BUILD_MIGRATE)
        list(APPEND manual_pages torvel-migrate.1)
    endif()
    foreach(page ${manual_pages})
        set(packed_page "${PROJECT_BINARY_DIR}/${page}.gz")
        add_custom_command(
            OUTPUT "${packed_page}"
            COMMAND ${GZIP} -9nc "${PROJECT_SOURCE_DIR}/docs/${page}" > "${packed_page}"
            DEPENDS "docs/${page}"
            VERBATIM)
        list(APPEND packed_pages "${packed_page}")
    endforeach()
    add_custom_target(manual ALL DEPENDS ${packed_pages})
    install(FILES ${packed_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
