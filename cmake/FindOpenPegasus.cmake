# Finds the SDK of the CIM server OpenPegasus: its public headers and the libraries pegcommon and pegprovider.
#
# Looked at, in this order: PEGASUS_ROOT_DIR (an installed prefix with include/ and lib/, or a source
# tree with src/), PEGASUS_HOME (the build output of a source tree; both are also read from the
# environment), the system's paths. PEGASUS_ROOT_DIR=OFF builds as if there were none.
#
# Sets OpenPegasus_FOUND, OpenPegasus_VERSION and the target openpegasus_sdk.

set(PEGASUS_ROOT_DIR "$ENV{PEGASUS_ROOT}" CACHE STRING
    "OpenPegasus SDK: an installed prefix or a source tree; OFF for none")
set(PEGASUS_HOME "$ENV{PEGASUS_HOME}" CACHE STRING
    "Build output of an OpenPegasus source tree; the tests of the real server run it")

set(OpenPegasus_FOUND FALSE)
if(PEGASUS_ROOT_DIR STREQUAL "OFF")
    message(STATUS "OpenPegasus: not looked for (PEGASUS_ROOT_DIR=OFF)")
    return()
endif()

# Where the hints change, what was found for the old ones is of no use.
if(NOT "${PEGASUS_ROOT_DIR};${PEGASUS_HOME}" STREQUAL "${zorva_pegasus_hints}")
    foreach(variable IN ITEMS OpenPegasus_INCLUDE_DIR OpenPegasus_COMMON_LIBRARY
                              OpenPegasus_PROVIDER_LIBRARY OpenPegasus_SERVER)
        unset(${variable} CACHE)
    endforeach()
    set(zorva_pegasus_hints "${PEGASUS_ROOT_DIR};${PEGASUS_HOME}" CACHE INTERNAL "")
endif()

set(hints ${PEGASUS_ROOT_DIR} ${PEGASUS_HOME})
# The project's own interface has files of the same names; CIMProvider.h is the server's alone.
find_path(OpenPegasus_INCLUDE_DIR Pegasus/Provider/CIMProvider.h
    HINTS ${hints} PATH_SUFFIXES include src)
find_library(OpenPegasus_COMMON_LIBRARY pegcommon HINTS ${hints} PATH_SUFFIXES lib lib64)
find_library(OpenPegasus_PROVIDER_LIBRARY pegprovider HINTS ${hints} PATH_SUFFIXES lib lib64)
find_program(OpenPegasus_SERVER cimserver HINTS ${hints} PATH_SUFFIXES bin sbin)
mark_as_advanced(OpenPegasus_INCLUDE_DIR OpenPegasus_COMMON_LIBRARY OpenPegasus_PROVIDER_LIBRARY
    OpenPegasus_SERVER)

set(missing "")
foreach(variable IN ITEMS OpenPegasus_INCLUDE_DIR OpenPegasus_COMMON_LIBRARY
                          OpenPegasus_PROVIDER_LIBRARY)
    if(NOT ${variable})
        list(APPEND missing ${variable})
    endif()
endforeach()
if(missing)
    if(PEGASUS_ROOT_DIR)
        message(FATAL_ERROR "PEGASUS_ROOT_DIR=${PEGASUS_ROOT_DIR} is no OpenPegasus SDK "
            "(missing: ${missing}). A source tree also needs PEGASUS_HOME, its build output.")
    endif()
    message(STATUS "OpenPegasus: no SDK found (PEGASUS_ROOT_DIR names one); its library is not built")
    return()
endif()

# The public headers do not say their version; a source tree and the server itself do.
set(OpenPegasus_VERSION "")
if(EXISTS ${OpenPegasus_INCLUDE_DIR}/Pegasus/Common/PegasusVersion.h)
    file(STRINGS ${OpenPegasus_INCLUDE_DIR}/Pegasus/Common/PegasusVersion.h line
        REGEX "^# *define PEGASUS_PRODUCT_VERSION \"" LIMIT_COUNT 1)
    string(REGEX REPLACE ".*\"([^\"]*)\".*" "\\1" OpenPegasus_VERSION "${line}")
elseif(OpenPegasus_SERVER)
    get_filename_component(library_dir ${OpenPegasus_COMMON_LIBRARY} DIRECTORY)
    execute_process(COMMAND ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${library_dir}
                            ${OpenPegasus_SERVER} --version
        OUTPUT_VARIABLE OpenPegasus_VERSION ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
endif()
set(version_text "version ${OpenPegasus_VERSION}")
if(NOT OpenPegasus_VERSION)
    set(version_text "unknown version")
endif()

# One of these must be defined, or the headers refuse to compile.
set(platforms x86_64 LINUX_X86_64_GNU i686 LINUX_IX86_GNU aarch64 LINUX_AARCH64_GNU
    ppc64 LINUX_PPC64_GNU ppc64le LINUX_PPC64_GNU s390x LINUX_ZSERIES64_GNU)
list(FIND platforms "${CMAKE_SYSTEM_PROCESSOR}" index)
if(index LESS 0)
    message(STATUS "OpenPegasus: ${version_text} found, but it has no platform for "
        "${CMAKE_SYSTEM_PROCESSOR}; its library is not built")
    return()
endif()
math(EXPR index "${index} + 1")
list(GET platforms ${index} platform)

add_library(openpegasus_sdk INTERFACE)
target_include_directories(openpegasus_sdk SYSTEM INTERFACE ${OpenPegasus_INCLUDE_DIR})
target_compile_definitions(openpegasus_sdk INTERFACE PEGASUS_PLATFORM_${platform})
target_link_libraries(openpegasus_sdk INTERFACE
    ${OpenPegasus_COMMON_LIBRARY} ${OpenPegasus_PROVIDER_LIBRARY})
set(OpenPegasus_FOUND TRUE)
message(STATUS "OpenPegasus: ${version_text} (headers ${OpenPegasus_INCLUDE_DIR}, "
    "library ${OpenPegasus_COMMON_LIBRARY})")
