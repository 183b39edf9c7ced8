# zorva_see_room(TARGET SCOPE FOLDER): lets TARGET, and by SCOPE whoever links it, include the headers of
# FOLDER by their path from the top of the tree, "wire/http/HttpServer.h", and those of no other folder.
#
# An include folder of its own for each room, which holds a link to the room alone, makes the
# compiler refuse a header of a room that is not linked.
function(zorva_see_room target scope folder)
    string(REPLACE "/" "." name ${folder})
    set(root ${PROJECT_BINARY_DIR}/rooms/${name})
    get_filename_component(parent ${root}/${folder} DIRECTORY)
    file(MAKE_DIRECTORY ${parent})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${root}/${folder} SYMBOLIC)
    target_include_directories(${target} ${scope} ${root})
    # Messages, assertions and debuggers name the file where it lies.
    target_compile_options(${target} ${scope} -ffile-prefix-map=${root}=${PROJECT_SOURCE_DIR})
endfunction()

# zorva_room_headers(TARGET [SCOPE]): the headers of the folder that this is called in, for TARGET and
# whoever links it (SCOPE PUBLIC, the default).
function(zorva_room_headers target)
    set(scope PUBLIC)
    if(ARGC GREATER 1)
        set(scope ${ARGV1})
    endif()
    file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    zorva_see_room(${target} ${scope} ${folder})
endfunction()

# zorva_add_room(NAME SOURCES... [LIBRARIES ...]): a room as a static library. LIBRARIES are the rooms
# that it stands on.
function(zorva_add_room name)
    cmake_parse_arguments(PARSE_ARGV 1 room "" "" "SOURCES;LIBRARIES")
    add_library(${name} STATIC ${room_SOURCES})
    zorva_room_headers(${name})
    target_link_libraries(${name} PUBLIC zorva_options ${room_LIBRARIES})
endfunction()
