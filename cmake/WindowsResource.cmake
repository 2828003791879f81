# Gives a program for Windows its icon, made from the logo, its manifest and what its properties show. The resource
# compiler is called here, as CMake would hand it the warnings of the other languages.

find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(zanvel_add_windows_resource target)
    set(logo ${PROJECT_SOURCE_DIR}/resources/icons/logo.svg)
    set(pack_icon ${PROJECT_SOURCE_DIR}/scripts/pack_icon.py)
    set(to ${CMAKE_CURRENT_BINARY_DIR}/resource)
    file(MAKE_DIRECTORY ${to})
    configure_file(win32/program.rc.in ${to}/program.rc @ONLY)
    foreach(size_px 16 24 32 48 64 256)
        set(picture ${to}/logo_${size_px}.png)
        list(APPEND pictures ${picture})
        list(APPEND drawing COMMAND ${RSVG_CONVERT} --width ${size_px} --height ${size_px} --output ${picture} ${logo})
    endforeach()
    add_custom_command(
        OUTPUT ${to}/program.o
        ${drawing}
        COMMAND Python3::Interpreter ${pack_icon} ${to}/program.ico ${pictures}
        COMMAND ${CMAKE_RC_COMPILER} --output-format coff program.rc program.o
        WORKING_DIRECTORY ${to}
        DEPENDS ${logo} ${pack_icon} ${to}/program.rc ${CMAKE_CURRENT_SOURCE_DIR}/win32/program.manifest
        COMMENT "Making the program's icon and manifest" VERBATIM)
    target_sources(${target} PRIVATE ${to}/program.o)
endfunction()
