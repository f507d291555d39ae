# kvarnprog_symbols_apart(target): with KVARNPROG_SYMBOLS_APART the debug symbols go into a file beside
# the program or DLL, which names it. On Linux the packages do that themselves.
function(kvarnprog_symbols_apart target)
    if(NOT WIN32 OR NOT KVARNPROG_SYMBOLS_APART)
        return()
    endif()
    set(file "$<TARGET_FILE:${target}>")
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND "${CMAKE_OBJCOPY}" --only-keep-debug "${file}" "${file}.debug"
        COMMAND "${CMAKE_STRIP}" "${file}"
        COMMAND "${CMAKE_OBJCOPY}" "--add-gnu-debuglink=${file}.debug" "${file}"
        VERBATIM)
    install(FILES "${file}.debug" DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Symbols
        EXCLUDE_FROM_ALL)
endfunction()
