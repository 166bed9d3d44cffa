# What the programs read beside their device root lies in share/ptz-camera, seen from the folder above the program: in an
# installation, and in the build tree as links to the sources.
set(resources platform/board/profiles platform/menu/menu.json webui)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/share/ptz-camera)
foreach(resource ${resources})
    get_filename_component(name ${resource} NAME)
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${resource} ${CMAKE_BINARY_DIR}/share/ptz-camera/${name} SYMBOLIC)
    if(IS_DIRECTORY ${CMAKE_SOURCE_DIR}/${resource})
        install(DIRECTORY ${resource} DESTINATION share/ptz-camera)
    else()
        install(FILES ${resource} DESTINATION share/ptz-camera)
    endif()
endforeach()

install(TARGETS camera camera-web RUNTIME)
install(FILES LICENSE README.md CHANGELOG.md DESTINATION share/doc/ptz-camera)
install(DIRECTORY docs DESTINATION share/doc/ptz-camera PATTERN developers EXCLUDE)
