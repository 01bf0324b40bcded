# The tests of the Windows program: the golden cases in one process, the cases that start the program with
# those that only Windows has, and what the program's file imports. The other tests are about code that is
# the same on every platform.

# Each test is one process: under Wine, starting one takes longer than most cases.
# How fast the tests' own code is does not matter.
function(add_windows_test name)
    add_executable(${name} ${ARGN})
    if(MINGW)
        target_compile_options(${name} PRIVATE -O0 -fno-lto)
    endif()
    target_link_libraries(${name} PRIVATE test_support)
    add_test(NAME windows/${name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(windows/${name} PROPERTIES TIMEOUT 600)
endfunction()

add_windows_test(golden-tests golden/golden-test.cpp)

file(GLOB windows_sources CONFIGURE_DEPENDS windows/*.cpp)
list(FILTER windows_sources EXCLUDE REGEX "/migrate-[^/]*$")
add_windows_test(command-line-tests command_line/command-line-test.cpp ${windows_sources})
target_link_libraries(command-line-tests PRIVATE version)
target_compile_definitions(command-line-tests PRIVATE
                           "TORVEL_PROGRAM=\"${drive}$<TARGET_FILE:BrannicToTorvel64>\""
                           "TORVEL_VERSION=\"${PROJECT_VERSION}\"")
add_dependencies(command-line-tests BrannicToTorvel64)

if(TORVEL_BUILD_MIGRATE)
    file(GLOB migrate_sources CONFIGURE_DEPENDS windows/migrate-*.cpp)
    add_windows_test(migrate-tests migrate/commands-test.cpp migrate/options-test.cpp
                     migrate/plant-test.cpp migrate/merge-test.cpp migrate/html-decoding.cpp
                     ${migrate_sources})
    target_link_libraries(migrate-tests PRIVATE torvel_migrate GTest::gtest_main)
endif()

if(MINGW)
    set(programs BrannicToTorvel64)
    if(TORVEL_BUILD_MIGRATE)
        list(APPEND programs torvel-migrate)
    endif()
    foreach(program ${programs})
        add_test(NAME windows/imports-of-${program}
                 COMMAND ${CMAKE_COMMAND} -DOBJDUMP=${CMAKE_OBJDUMP}
                         -DPROGRAM=$<TARGET_FILE:${program}>
                         -P ${CMAKE_CURRENT_LIST_DIR}/check-imports.cmake)
    endforeach()
endif()
