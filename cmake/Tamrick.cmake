# Shared settings of every target, and the two precompiled headers.

add_library(tamrick_settings INTERFACE)
if(MSVC)
    target_compile_options(tamrick_settings INTERFACE /W4 /utf-8 /permissive- /Zc:__cplusplus)
else()
    target_compile_options(tamrick_settings INTERFACE -Wall -Wextra)
endif()
target_include_directories(tamrick_settings INTERFACE ${PROJECT_SOURCE_DIR})
if(TAMRICK_SANITIZE)
    target_compile_options(tamrick_settings INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                     -fno-omit-frame-pointer)
    target_link_options(tamrick_settings INTERFACE -fsanitize=address,undefined)
endif()

# tamrick_library(NAME data DEPENDS ... [WIDGETS])
# One static library from every .cpp of the folder and its subfolders.
function(tamrick_library)
    cmake_parse_arguments(ARG "WIDGETS" "NAME" "DEPENDS" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_library(${ARG_NAME} STATIC ${sources})
    set_target_properties(${ARG_NAME} PROPERTIES AUTOMOC ON LINKER_LANGUAGE CXX)
    tamrick_link(${ARG_NAME} ${ARG_DEPENDS})
    if(ARG_WIDGETS) # what the precompiled header with the widgets was made with
        target_link_libraries(${ARG_NAME} PUBLIC Qt6::Gui Qt6::Widgets)
    endif()
    tamrick_precompile(${ARG_NAME} "${ARG_WIDGETS}")
endfunction()

# Adds the folders that hold any code yet, in order.
macro(tamrick_folders)
    foreach(folder ${ARGN})
        file(GLOB_RECURSE found CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
        if(found)
            add_subdirectory(${folder})
        endif()
    endforeach()
endmacro()

# Links a target to libraries, passing over folders that hold no code yet.
function(tamrick_link target)
    target_link_libraries(${target} PUBLIC tamrick_settings)
    foreach(dependency ${ARGN})
        if(TARGET ${dependency} OR dependency MATCHES "::")
            target_link_libraries(${target} PUBLIC ${dependency})
        endif()
    endforeach()
endfunction()

# Gives a target the shared precompiled header: QtCore and the standard library, or those with QtWidgets.
# Each is compiled once, by the small library made here, and reused by all others.
function(tamrick_precompile target widgets)
    if(TAMRICK_FUZZ)
        return()
    endif()
    if(widgets)
        target_precompile_headers(${target} REUSE_FROM pch_widgets)
    else()
        target_precompile_headers(${target} REUSE_FROM pch_core)
    endif()
endfunction()

set(TAMRICK_STANDARD_HEADERS <algorithm> <cmath> <functional> <map> <memory> <optional> <string> <utility> <variant> <vector>)

function(tamrick_pch_library name)
    file(WRITE ${CMAKE_BINARY_DIR}/${name}.cpp "// Exists to compile the shared precompiled header once.\n")
    add_library(${name} STATIC ${CMAKE_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PUBLIC tamrick_settings Qt6::Core ${ARGN})
endfunction()

if(NOT TAMRICK_FUZZ)
    tamrick_pch_library(pch_core)
    target_precompile_headers(pch_core PRIVATE ${TAMRICK_STANDARD_HEADERS} <QtCore/QtCore>)
    # Every user has the same definitions as the precompiled header, or the compiler would refuse it.
    tamrick_pch_library(pch_widgets Qt6::Gui Qt6::Widgets)
    target_precompile_headers(pch_widgets PRIVATE ${TAMRICK_STANDARD_HEADERS} <QtCore/QtCore> <QtWidgets/QtWidgets>)
endif()
