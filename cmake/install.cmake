# What cmake --install puts where.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(KXGRAPH_QT_PLUGIN_DIR ${CMAKE_INSTALL_LIBDIR}/qt6/plugins CACHE STRING "Plugins of Qt, below the prefix")

function(kx_install_library NAME COMPONENT ABOUT ROOMS PRIVATE REQUIRES ENTERS)
    install(TARGETS ${NAME} EXPORT kxgraph-${COMPONENT}
            RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
    install(EXPORT kxgraph-${COMPONENT} NAMESPACE kxgraph:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/kxgraph
            COMPONENT development)
    foreach(room ${ROOMS})
        install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/${room} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kxgraph
                COMPONENT development FILES_MATCHING PATTERN "*.h")
    endforeach()
    list(JOIN REQUIRES ", " requires)
    set(libraries -l${NAME})
    if(ENTERS)
        string(PREPEND libraries "-Wl,--undefined=${ENTERS} ")
    endif()
    foreach(library ${PRIVATE})
        if(NOT BUILD_SHARED_LIBS AND NOT TARGET ${library})
            string(APPEND libraries " -l${library}")
        endif()
    endforeach()
    string(REPLACE "_" "-" package ${NAME})
    file(RELATIVE_PATH up /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/package.pc.in ${CMAKE_CURRENT_BINARY_DIR}/${package}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${package}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
            COMPONENT development)
endfunction()

if(KXGRAPH_INSTALL)
    configure_package_config_file(
        ${PROJECT_SOURCE_DIR}/cmake/kxgraphConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/kxgraphConfig.cmake
        INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/kxgraph)
    write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/kxgraphConfigVersion.cmake
                                     COMPATIBILITY SameMinorVersion)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kxgraphConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/kxgraphConfigVersion.cmake
            DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/kxgraph COMPONENT development)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/look/themes DESTINATION ${CMAKE_INSTALL_DATADIR}/kxgraph
            COMPONENT runtime)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation
            PATTERN scenes EXCLUDE PATTERN CMakeLists.txt EXCLUDE)
    install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
            DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
endif()
