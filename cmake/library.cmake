# kx_library: a library of rooms of src/, which is installed with their headers.

# A source file enters its room's target by lying in the room.
function(kx_sources VARIABLE)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${ARGN})
    list(SORT found)
    set(${VARIABLE} ${found} PARENT_SCOPE)
endfunction()

#   kx_library(NAME COMPONENT name ABOUT text ROOMS room... [PUBLIC target...] [PRIVATE target...]
#              [REQUIRES package...] [ENTERS symbol])
# Others take it as kxgraph::COMPONENT. REQUIRES: what pkg-config names for PUBLIC. ENTERS: what is linked with the
# library even where a program names nothing of it, for the library makes itself known to others there.
function(kx_library NAME)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "COMPONENT;ABOUT;ENTERS" "ROOMS;PUBLIC;PRIVATE;REQUIRES")
    list(TRANSFORM arg_ROOMS REPLACE "(.+)" "src/\\1/*.cpp" OUTPUT_VARIABLE patterns)
    kx_sources(sources ${patterns})
    add_library(${NAME} ${sources})
    add_library(kxgraph::${arg_COMPONENT} ALIAS ${NAME})
    target_compile_features(${NAME} PUBLIC cxx_std_20)
    target_include_directories(${NAME} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                                              $<INSTALL_INTERFACE:include>)
    target_link_libraries(${NAME} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} $<BUILD_INTERFACE:kx_flags>)
    # Before version 1 every minor version may break those who link it.
    set_target_properties(${NAME} PROPERTIES
        EXPORT_NAME ${arg_COMPONENT} CXX_EXTENSIONS OFF VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
    if(arg_ENTERS)
        target_link_options(${NAME} INTERFACE LINKER:--undefined=${arg_ENTERS})
    endif()
    if(BUILD_SHARED_LIBS)
        # What is ours is exported; what the templates of others leave behind is not.
        target_link_options(${NAME} PRIVATE "LINKER:--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map")
        set_target_properties(${NAME} PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
    endif()
    if(KXGRAPH_INSTALL)
        kx_install_library(${NAME} "${arg_COMPONENT}" "${arg_ABOUT}" "${arg_ROOMS}" "${arg_PRIVATE}" "${arg_REQUIRES}" "${arg_ENTERS}")
    endif()
endfunction()

# kx_embed(NAME file...): makes the header <kxgraph/NAME> of text files, each as {"<name>", "<text>"},
function(kx_embed NAME)
    set(entries "")
    foreach(file ${ARGN})
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
        get_filename_component(name ${file} NAME_WE)
        file(READ ${file} text)
        string(APPEND entries "{\"${name}\", R\"text(${text})text\"},\n")
    endforeach()
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/embedded/kxgraph/${NAME} CONTENT "${entries}" @ONLY)
endfunction()
