# The embedded archives: drawings, the pictures made from them, and a style sheet, packed into one zip archive, and
# the pictures for screens of twice the resolution in another. Generated sources hold them as read-only data (see
# common/gui/resources_archive.h).
#
# Included by CMake this file defines zanvel_embed_resources(TARGET). Run as a script (cmake -P) it writes a
# source: -DARCHIVE=the archive -DVARIABLE=what holds it -DSOURCE=the file to write.

if(CMAKE_SCRIPT_MODE_FILE)
    file(READ ${ARCHIVE} bytes HEX)
    string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
    file(WRITE ${SOURCE} "#include \"common/gui/resources_archive.h\"\n\n"
         "static const unsigned char bytes[] = {\n${bytes}};\n\n"
         "std::span<const unsigned char> ${VARIABLE} = bytes;\n")
    return()
endif()

find_program(RSVG_CONVERT rsvg-convert REQUIRED)

set(ZANVEL_RESOURCE_PICTURES
    about add_closeup add_mark add_object_file archive arrow_down arrow_up checkbox_off checkbox_on
    delete_object_file menu object_file_setup open_object_file peek_at_object_file positive print report_setup
    save settings show_view_summary snapshot splash start_window_logo teleport text_tab_menu zoom_in zoom_out
    zoom_to_window)
set(ZANVEL_RESOURCE_FILES icons/checkbox_off.svg icons/checkbox_on.svg icons/logo.svg markup.xsl)

# Adds a source to the target that holds the pictures, drawn `zoom` times as large, and `files` in `variable`.
function(zanvel_embed_archive target variable zoom files)
    set(from ${PROJECT_SOURCE_DIR}/resources)
    set(to ${CMAKE_CURRENT_BINARY_DIR}/${variable})
    file(MAKE_DIRECTORY ${to})
    foreach(picture IN LISTS ZANVEL_RESOURCE_PICTURES)
        add_custom_command(
            OUTPUT ${to}/${picture}.png
            COMMAND ${RSVG_CONVERT} --zoom ${zoom} --output ${to}/${picture}.png ${from}/icons/${picture}.svg
            DEPENDS ${from}/icons/${picture}.svg VERBATIM)
        list(APPEND members ${picture}.png)
    endforeach()
    foreach(file IN LISTS files)
        get_filename_component(name ${file} NAME)
        add_custom_command(
            OUTPUT ${to}/${name}
            COMMAND ${CMAKE_COMMAND} -E copy ${from}/${file} ${to}/${name}
            DEPENDS ${from}/${file} VERBATIM)
        list(APPEND members ${name})
    endforeach()

    list(TRANSFORM members PREPEND ${to}/ OUTPUT_VARIABLE member_paths)
    add_custom_command(
        OUTPUT ${to}/embedded.cc
        COMMAND ${CMAKE_COMMAND} -E tar cf embedded.zip --format=zip -- ${members}
        COMMAND ${CMAKE_COMMAND} -DARCHIVE=embedded.zip -DVARIABLE=${variable} -DSOURCE=embedded.cc
                -P ${PROJECT_SOURCE_DIR}/cmake/EmbedResources.cmake
        WORKING_DIRECTORY ${to}
        DEPENDS ${member_paths} ${PROJECT_SOURCE_DIR}/cmake/EmbedResources.cmake
        COMMENT "Packing the embedded resources" VERBATIM)
    target_sources(${target} PRIVATE ${to}/embedded.cc)
endfunction()

function(zanvel_embed_resources target)
    zanvel_embed_archive(${target} z_resources_archive 1 "${ZANVEL_RESOURCE_FILES}")
    zanvel_embed_archive(${target} z_resources_doubled_archive 2 "")
endfunction()
