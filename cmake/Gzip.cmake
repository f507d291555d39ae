# kvarnprog_gzip(file compressed): as Debian wants its documents, the same bytes each time.
find_program(KVARNPROG_GZIP gzip REQUIRED)
function(kvarnprog_gzip file compressed)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    execute_process(COMMAND "${KVARNPROG_GZIP}" -9nc "${file}" OUTPUT_FILE "${compressed}"
        COMMAND_ERROR_IS_FATAL ANY)
endfunction()
