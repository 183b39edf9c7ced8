# Fails unless LIBRARY exports exactly one symbol, of an ordinary function.
execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY}
    OUTPUT_VARIABLE symbols RESULT_VARIABLE status OUTPUT_STRIP_TRAILING_WHITESPACE)
# "T" is a function. A unique symbol ("u") would prevent the library from being unloaded.
if(NOT status EQUAL 0 OR NOT symbols MATCHES "^[0-9a-f]+ T PegasusCreateProvider$")
    message(FATAL_ERROR "${LIBRARY} should export PegasusCreateProvider alone, but exports:\n${symbols}")
endif()
