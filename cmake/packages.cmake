# What is given away: script/package makes the packages of the presets "release" and "windows".
include(GNUInstallDirs)

# Notices of what becomes part of the program, from the Debian packages that it comes from.
string(REGEX MATCH "^[0-9]+" compiler_version "${CMAKE_CXX_COMPILER_VERSION}")
set(notices
    tinyxml2.txt /usr/share/doc/libtinyxml2-dev/copyright
    GPL-3.txt /usr/share/common-licenses/GPL-3)
if(WIN32)
    set(program_directory .)
    set(document_directory .)
    list(APPEND notices
         gcc-runtime.txt /usr/share/doc/gcc-mingw-w64-x86-64-posix/copyright
         mingw-w64-runtime.txt /usr/share/doc/mingw-w64-x86-64-dev/copyright)
else()
    set(program_directory ${CMAKE_INSTALL_BINDIR})
    set(document_directory ${CMAKE_INSTALL_DATADIR}/doc/brannictotorvel64)
    list(APPEND notices
         gcc-runtime.txt /usr/share/doc/libstdc++-${compiler_version}-dev/copyright
         glibc.txt /usr/share/doc/libc6-dev/copyright
         LGPL-2.1.txt /usr/share/common-licenses/LGPL-2.1)
endif()
while(notices)
    list(POP_FRONT notices name source)
    if(EXISTS "${source}")
        install(FILES "${source}" DESTINATION ${document_directory}/licences RENAME "${name}")
    endif()
endwhile()

install(TARGETS BrannicToTorvel64 RUNTIME DESTINATION ${program_directory})
install(FILES README.md DESTINATION ${document_directory})
install(DIRECTORY docs examples DESTINATION ${document_directory}
        FILES_MATCHING PATTERN "*.md" PATTERN "*.pgm" PATTERN "*.xml")
if(NOT WIN32)
    find_program(GZIP gzip)
    set(manual_page "${PROJECT_BINARY_DIR}/BrannicToTorvel64.1.gz")
    add_custom_command(
        OUTPUT "${manual_page}"
        COMMAND ${GZIP} -9nc "${PROJECT_SOURCE_DIR}/docs/BrannicToTorvel64.1" > "${manual_page}"
        DEPENDS docs/BrannicToTorvel64.1
        VERBATIM)
    add_custom_target(manual ALL DEPENDS "${manual_page}")
    install(FILES "${manual_page}" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()

set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VENDOR "The BrannicToTorvel64 maintainers")
set(CPACK_PACKAGE_CONTACT "The BrannicToTorvel64 maintainers <maintainers@brannictotorvel64.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Converts Brannic programs to Torvel")
set(CPACK_STRIP_FILES ON)
if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION}-windows-x64)
else()
    set(CPACK_GENERATOR TGZ DEB)
    set(CPACK_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_PACKAGE_NAME brannictotorvel64)
    set(CPACK_DEBIAN_PACKAGE_SECTION utils)
    if(NOT TARGET tinyxml2_static)
        set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    endif()
endif()
include(CPack)
