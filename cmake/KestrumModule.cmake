# The one place for compiler flags, and the functions that declare a module and a test program.

add_library(kestrum_warnings INTERFACE)
add_library(kestrum::warnings ALIAS kestrum_warnings)
target_compile_options(kestrum_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${KESTRUM_WERROR}>:-Werror>)

if(KESTRUM_SANITIZE)
    add_compile_options(-fsanitize=${KESTRUM_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${KESTRUM_SANITIZE})
    if(KESTRUM_SANITIZE MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=undefined)
    endif()
endif()

# Guards against what an attacker makes of a fault: they cost next to nothing. Checks of memory bounds need the
# optimiser, and sanitizers bring their own. tests/guards/ looks for them in what was built.
set(KESTRUM_GUARDED OFF)
if(NOT KESTRUM_SANITIZE AND CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$")
    set(KESTRUM_GUARDED ON)
    add_compile_options(-fstack-protector-strong)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
    # A packager may ask for a higher level.
    if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
        add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    endif()
    if(WIN32)
        # As an archive, so that there is no further library to ship.
        string(APPEND CMAKE_CXX_STANDARD_LIBRARIES " -l:libssp.a")
    else()
        # Not every processor has these.
        include(CheckCXXCompilerFlag)
        foreach(guard stack-clash-protection cf-protection)
            check_cxx_compiler_flag(-f${guard} KESTRUM_HAS_${guard})
            if(KESTRUM_HAS_${guard})
                add_compile_options(-f${guard})
            endif()
        endforeach()
        add_link_options(LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
    endif()
endif()

if(WIN32)
    set(KESTRUM_OS windows)
else()
    set(KESTRUM_OS unix)
endif()

# kestrum_module(<name> FOLDER <folder below src> [SOURCES ...] [PUBLIC targets...] [PRIVATE targets...])
#
# Makes the static library kestrum_<name> with the alias kestrum::<name>. Headers are included by their path
# below src/. A module without .cpp files becomes an interface library. The links are also written down for
# the test that holds every #include against them.
function(kestrum_module name)
    cmake_parse_arguments(arg "" "FOLDER" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    set(target kestrum_${name})
    if(arg_SOURCES MATCHES "\\.cpp")
        add_library(${target} STATIC ${arg_SOURCES})
        target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
        target_link_libraries(${target} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} kestrum::warnings)
    else()
        add_library(${target} INTERFACE ${arg_SOURCES})
        target_include_directories(${target} INTERFACE ${PROJECT_SOURCE_DIR}/src)
        target_link_libraries(${target} INTERFACE ${arg_PUBLIC})
    endif()
    add_library(kestrum::${name} ALIAS ${target})
    string(REPLACE ";" " " links "${arg_PUBLIC};${arg_PRIVATE}")
    string(REPLACE ";" " " public_links "${arg_PUBLIC}")
    set_property(GLOBAL APPEND_STRING PROPERTY KESTRUM_MODULE_LINKS
        "${name}|${arg_FOLDER}|${public_links}|${links}\n")
endfunction()

# Writes <build>/module-links.txt: one line a module, "name|folder|public links|all links".
function(kestrum_write_module_links)
    get_property(links GLOBAL PROPERTY KESTRUM_MODULE_LINKS)
    file(WRITE ${PROJECT_BINARY_DIR}/module-links.txt "${links}")
endfunction()

# kestrum_test(<name> SOURCES ... LINK targets... [QT])
#
# Makes the GoogleTest program <name> and registers its cases with ctest. QT: the program has a main of its
# own with an application object, and runs on the offscreen platform.
function(kestrum_test name)
    cmake_parse_arguments(arg "QT" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(${name} PRIVATE KESTRUM_TEST_DATA="${PROJECT_SOURCE_DIR}/tests")
    # What is tested is in libraries, so that the tests themselves only have to compile fast.
    target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O1>)
    target_link_libraries(${name} PRIVATE ${arg_LINK} kestrum::warnings GTest::gtest)
    set(environment "")
    if(arg_QT)
        list(APPEND environment "QT_QPA_PLATFORM=offscreen")
    else()
        target_link_libraries(${name} PRIVATE GTest::gtest_main)
    endif()
    if(KESTRUM_SANITIZE)
        set(suppressions ${PROJECT_SOURCE_DIR}/tests/sanitizers)
        list(APPEND environment
            "LSAN_OPTIONS=suppressions=${suppressions}/lsan.supp:print_suppressions=0"
            "TSAN_OPTIONS=suppressions=${suppressions}/tsan.supp:halt_on_error=1"
            "UBSAN_OPTIONS=print_stacktrace=1")
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT 900)
    if(WIN32 AND arg_QT)
        # They store in the same key of the registry, which is the user's.
        set_tests_properties(${name} PROPERTIES RESOURCE_LOCK settings)
    endif()
endfunction()
