# zorva_require(NAME DEBIAN_PACKAGE [find_package options]): find_package(NAME) that, where nothing is found, names the
# Debian package that brings it instead of CMake's long text.
function(zorva_require name debian_package)
    find_package(${name} ${ARGN} QUIET)
    if(NOT ${name}_FOUND)
        message(FATAL_ERROR "${name} is missing. On Debian: apt-get install ${debian_package}")
    endif()
endfunction()
