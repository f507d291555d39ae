# kvarnprog_symbols_apart(target folder): with KVARNPROG_SYMBOLS_APART the debug symbols of what is
# installed to the folder go into a file of their own, which the program or library names. Debuggers
# look for it beside that on Windows, and below lib/debug elsewhere.
function(kvarnprog_symbols_apart target folder)
    if(NOT KVARNPROG_SYMBOLS_APART)
        return()
    endif()
    set(file "$<TARGET_FILE:${target}>")
    # The tools for Windows write the time of their run, or this one.
    set(timeless "${CMAKE_COMMAND}" -E env SOURCE_DATE_EPOCH=0)
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${timeless} "${CMAKE_OBJCOPY}" --only-keep-debug "${file}" "${file}.debug"
        COMMAND ${timeless} "${CMAKE_STRIP}" --strip-unneeded "${file}"
        COMMAND ${timeless} "${CMAKE_OBJCOPY}" "--add-gnu-debuglink=${file}.debug" "${file}"
        VERBATIM)
    if(NOT WIN32)
        set(folder "lib/debug${CMAKE_INSTALL_PREFIX}/${folder}")
    endif()
    install(FILES "${file}.debug" DESTINATION "${folder}" COMPONENT Symbols EXCLUDE_FROM_ALL)
endfunction()
