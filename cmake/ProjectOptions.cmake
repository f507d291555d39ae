# How the project's own code is compiled. Linked privately: none of it reaches those who use the
# library.
add_library(kvarnprog_options INTERFACE)
target_compile_features(kvarnprog_options INTERFACE cxx_std_20)
# Where the presets ask for it: another compiler may know warnings that nobody has met here.
set(warnings_are_errors $<BOOL:${KVARNPROG_WERROR}>)
if(MSVC)
    # Texts in the sources are UTF-8, and literals of code page 1252 are made from them. Its floating
    # point is the precise one, which fuses nothing.
    target_compile_options(kvarnprog_options INTERFACE /W4 $<${warnings_are_errors}:/WX>
        /utf-8 /permissive- /Zc:__cplusplus /Zc:preprocessor /fp:precise /sdl /guard:cf)
    target_link_options(kvarnprog_options INTERFACE /guard:cf)
    return()
endif()
target_compile_options(kvarnprog_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    -Wold-style-cast
    $<${warnings_are_errors}:-Werror>
    # Two ways through one build must give the same bits: a fused multiply-add would round once
    # where the written formula rounds twice.
    -ffp-contract=off)

# What makes it hard to use a fault that is still there: a canary below each return address, checks
# of the C library's copying, return and jump targets that the processor checks, addresses that
# change, and tables of addresses that cannot be written once the program runs.
include(CheckCXXCompilerFlag)
check_cxx_compiler_flag(-fcf-protection=full kvarnprog_has_cf_protection)
target_compile_options(kvarnprog_options INTERFACE -fstack-protector-strong
    $<$<BOOL:${kvarnprog_has_cf_protection}>:-fcf-protection=full>)
if(NOT KVARNPROG_SANITIZE AND NOT KVARNPROG_FUZZ) # which have checks of their own
    target_compile_options(kvarnprog_options INTERFACE
        $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=2>)
endif()
if(WIN32)
    target_link_options(kvarnprog_options INTERFACE
        -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
    # The canary's part of the run-time library is small and without state that is shared. Where the
    # compiler has none, the C run-time library has it.
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libssp.a
        OUTPUT_VARIABLE libssp OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(IS_ABSOLUTE "${libssp}")
        target_link_libraries(kvarnprog_options INTERFACE -l:libssp.a)
    endif()
else()
    target_link_options(kvarnprog_options INTERFACE -Wl,-z,relro,-z,now)
endif()

if(KVARNPROG_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(KVARNPROG_FUZZ)
    # The whole tree is instrumented, so that the fuzzer sees which branches an input took.
    add_compile_options(-fsanitize=fuzzer-no-link
        "-fsanitize-coverage-ignorelist=${CMAKE_CURRENT_LIST_DIR}/../fuzz/coverage-ignore.txt")
    if(KVARNPROG_FUZZ_FAST)
        # What an input is compared with is not watched: that takes a third of the time.
        add_compile_options(-fno-sanitize-coverage=trace-cmp,indirect-calls,stack-depth)
    else()
        add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all)
        add_link_options(-fsanitize=address,undefined)
    endif()
endif()
