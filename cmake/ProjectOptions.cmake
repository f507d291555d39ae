# How the project's own code is compiled. Linked privately: none of it reaches those who use the
# library.
add_library(kvarnprog_options INTERFACE)
target_compile_features(kvarnprog_options INTERFACE cxx_std_20)
target_compile_options(kvarnprog_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    -Wold-style-cast
    # Never for those who build the library within their own project.
    $<$<BOOL:${PROJECT_IS_TOP_LEVEL}>:-Werror>
    # Two ways through one build must give the same bits: a fused multiply-add would round once
    # where the written formula rounds twice.
    -ffp-contract=off)

if(KVARNPROG_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(KVARNPROG_FUZZ)
    # The whole tree is instrumented, so that the fuzzer sees which branches an input took.
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
        "-fsanitize-coverage-ignorelist=${CMAKE_CURRENT_LIST_DIR}/../fuzz/coverage-ignore.txt")
    add_link_options(-fsanitize=address,undefined)
endif()
