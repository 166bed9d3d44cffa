# app_module(name [SOURCES ...] [USES module ...]): a module of the service. It sees the contract, its own folder, and
# the public headers include/<module>/ of the modules it uses; nothing else is on its include path.
function(app_module name)
    cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
    set(target app_${name})
    if(arg_SOURCES)
        add_library(${target} STATIC ${arg_SOURCES})
        target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/include
                                             PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
        target_link_libraries(${target} PUBLIC contract)
        set(access PRIVATE)
    else() # headers alone
        add_library(${target} INTERFACE)
        target_include_directories(${target} INTERFACE ${CMAKE_CURRENT_SOURCE_DIR}/include)
        target_link_libraries(${target} INTERFACE contract)
        set(access INTERFACE)
    endif()
    foreach(used ${arg_USES})
        target_link_libraries(${target} ${access} app_${used})
    endforeach()
    set_property(GLOBAL APPEND PROPERTY APP_MODULES ${target})
endfunction()
