# Headers that many sources include, compiled once for all of them.
#
# A matter of speed alone: every source includes what it uses, as builds without this option show (a plain
# cmake, ./test compilers).

option(ZORVA_PRECOMPILED_HEADERS "Compile headers that many sources include once for all" OFF)

set(zorva_standard_headers
    <algorithm> <array> <cstddef> <cstdint> <cstdlib> <functional> <map> <memory> <optional> <stdexcept>
    <string> <string_view> <utility> <vector>)
set(zorva_model_headers
    <Pegasus/Common/Array.h> <Pegasus/Common/CIMInstance.h> <Pegasus/Common/CIMObjectPath.h>
    <Pegasus/Common/CIMParamValue.h> <Pegasus/Common/CIMPropertyList.h> <Pegasus/Common/CIMValue.h>
    <Pegasus/Common/Exception.h> <Pegasus/Common/OperationContext.h>)

# zorva_precompile_headers(): gives each target that is defined so far the headers above that it may include:
# those of the object model if it links to it, and of GoogleTest if it is of the tests. Targets with the same headers share one
# precompiled form, and therefore flags like visibility, -fPIC and optimisation.
function(zorva_precompile_headers)
    if(NOT ZORVA_PRECOMPILED_HEADERS)
        return()
    endif()
    zorva_targets_below(${PROJECT_SOURCE_DIR} targets)
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        zorva_libraries_of(${target} libraries)
        if(NOT type MATCHES "STATIC|OBJECT|MODULE|EXECUTABLE" OR NOT zorva_options IN_LIST libraries)
            continue()
        endif()
        set(owner precompiled)
        set(headers ${zorva_standard_headers})
        set(owner_libraries zorva_options)
        if(target STREQUAL pegasus_model OR pegasus_model IN_LIST libraries)
            string(APPEND owner _model)
            list(APPEND headers ${zorva_model_headers})
        endif()
        if(tests_headers IN_LIST libraries)
            if(NOT GTest::gtest IN_LIST libraries)
                continue()
            endif()
            string(APPEND owner _tests)
            list(APPEND headers <gtest/gtest.h>)
            list(APPEND owner_libraries tests_headers GTest::gtest)
        endif()
        if(NOT TARGET ${owner})
            # Of no definitions but GoogleTest's: compilers refuse the form where one of its own is missing.
            file(TOUCH ${PROJECT_BINARY_DIR}/${owner}.cpp)
            add_library(${owner} OBJECT ${PROJECT_BINARY_DIR}/${owner}.cpp)
            target_link_libraries(${owner} PRIVATE ${owner_libraries})
            # What tests_headers tells other targets, CMake does not tell object libraries.
            if(tests_headers IN_LIST owner_libraries)
                set_target_properties(${owner} PROPERTIES ZORVA_UNOPTIMISED ON)
            endif()
            target_include_directories(${owner} PRIVATE ${PROJECT_SOURCE_DIR}/pegasus/model)
            target_precompile_headers(${owner} PRIVATE ${headers})
        endif()
        target_precompile_headers(${target} REUSE_FROM ${owner})
    endforeach()
endfunction()

# zorva_targets_below(FOLDER RESULT): every target that FOLDER and the folders below it define.
function(zorva_targets_below folder result)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(subfolder IN LISTS folders)
        zorva_targets_below(${subfolder} more)
        list(APPEND targets ${more})
    endforeach()
    set(${result} ${targets} PARENT_SCOPE)
endfunction()

# zorva_libraries_of(TARGET RESULT): the libraries whose headers TARGET may include.
function(zorva_libraries_of target result)
    get_target_property(open ${target} LINK_LIBRARIES)
    set(found "")
    while(open)
        list(POP_FRONT open library)
        if(library IN_LIST found)
            continue()
        endif()
        list(APPEND found ${library})
        if(TARGET ${library})
            get_target_property(further ${library} INTERFACE_LINK_LIBRARIES)
            if(further)
                list(APPEND open ${further})
            endif()
        endif()
    endwhile()
    set(${result} ${found} PARENT_SCOPE)
endfunction()
