# Shared settings for every target of the project.

function(koral_set_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
    # Outside Release builds an index past the end of a std::array, span, vector or string
    # stops the program at once instead of reading a neighbour's bytes: the tests see it.
    target_compile_definitions(${target} PRIVATE $<$<NOT:$<CONFIG:Release>>:_GLIBCXX_ASSERTIONS>)
endfunction()

# koral_add_library(NAME SOURCES ... [LIBS ...]): a static library of one subsystem.
function(koral_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_LIBS})
    koral_set_warnings(${name})
endfunction()

# koral_add_test(NAME SOURCES ... [LIBS ...] [TIMEOUT seconds]): one QtTest executable,
# registered with CTest. GUI tests run on the offscreen platform.
function(koral_add_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE Qt6::Test ${ARG_LIBS})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(${name} PRIVATE
        KORAL_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
        KORAL_EXAMPLES_DIR="${PROJECT_SOURCE_DIR}/examples")
    koral_set_warnings(${name})
    add_test(NAME ${name} COMMAND ${name})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${ARG_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software")
endfunction()
