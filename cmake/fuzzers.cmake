# The fuzz targets: a build of its own with the machine's clang, since no sanitizers exist for the cross compiler.
find_program(CLANG clang-14 NO_CMAKE_FIND_ROOT_PATH)
find_program(CLANGXX clang++-14 NO_CMAKE_FIND_ROOT_PATH)
if(NOT CLANGXX OR NOT CLANG)
    add_test(NAME fuzz_regression COMMAND ${CMAKE_COMMAND} -E echo "SKIPPED: clang 14 is not installed")
    set_tests_properties(fuzz_regression PROPERTIES SKIP_REGULAR_EXPRESSION "SKIPPED:")
    return()
endif()

include(ExternalProject)
ExternalProject_Add(fuzzers
    SOURCE_DIR ${CMAKE_SOURCE_DIR}/tests/fuzz
    BINARY_DIR ${CMAKE_BINARY_DIR}/fuzz
    PREFIX ${CMAKE_BINARY_DIR}/fuzz/steps
    CMAKE_GENERATOR Ninja
    CMAKE_ARGS
        -DCMAKE_C_COMPILER=${CLANG}
        -DCMAKE_CXX_COMPILER=${CLANGXX}
        -DCMAKE_C_COMPILER_LAUNCHER=${CMAKE_C_COMPILER_LAUNCHER}
        -DCMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER}
    BUILD_ALWAYS ON
    INSTALL_COMMAND "")
add_test(NAME fuzz_regression
    COMMAND bash ${CMAKE_SOURCE_DIR}/tests/fuzz/regression.sh ${CMAKE_BINARY_DIR}/fuzz/bin)
