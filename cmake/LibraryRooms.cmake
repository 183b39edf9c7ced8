# zorva_add_library_room(NAME SOURCES... [LIBRARIES ...]): a room of the provider library.
#
# The same sources are compiled once for each server: NAME against the project's own object model,
# and, where an OpenPegasus SDK was found (target openpegasus_sdk), NAME_openpegasus against that.
# LIBRARIES name other rooms; libraries that have no second form are used as they are.
function(zorva_add_library_room name)
    cmake_parse_arguments(PARSE_ARGV 1 room "" "" "SOURCES;LIBRARIES")
    add_library(${name} STATIC ${room_SOURCES})
    zorva_room_headers(${name})
    target_link_libraries(${name} PUBLIC zorva_options pegasus_interface pegasus_model
        ${room_LIBRARIES})
    if(TARGET openpegasus_sdk)
        add_library(${name}_openpegasus STATIC ${room_SOURCES})
        set(libraries "")
        foreach(library IN LISTS room_LIBRARIES)
            if(TARGET ${library}_openpegasus)
                set(library ${library}_openpegasus)
            endif()
            list(APPEND libraries ${library})
        endforeach()
        zorva_room_headers(${name}_openpegasus)
        target_link_libraries(${name}_openpegasus PUBLIC zorva_options pegasus_interface
            openpegasus_sdk ${libraries})
    endif()
endfunction()

# zorva_export_factory_only(NAME): a loadable library exports PegasusCreateProvider and nothing else.
# Hidden visibility alone would leave weak symbols of templates and of the server's own classes.
set(zorva_factory_only_map ${CMAKE_CURRENT_LIST_DIR}/factory-only.map)
function(zorva_export_factory_only target)
    target_link_options(${target} PRIVATE -Wl,--version-script=${zorva_factory_only_map})
    set_target_properties(${target} PROPERTIES LINK_DEPENDS ${zorva_factory_only_map})
    # Sanitizers leave their own symbols for the program to bring.
    if(NOT ZORVA_SANITIZE)
        target_link_options(${target} PRIVATE -Wl,-z,defs)
    endif()
endfunction()
