# What `cmake --install` puts in place: the programs, and for hosts that embed the control the
# libraries, their headers and the package ControleVorandine. See README.md.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/ControleVorandine)
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/controle-vorandine)

# The core, the store, and the front end without a window.
set(embedded text records ports widgets rules trainings experience dif control components store postgresql headless)
foreach(library IN LISTS embedded ITEMS qt)
    set_target_properties(vorandine_${library} PROPERTIES EXPORT_NAME ${library})
endforeach()
list(TRANSFORM embedded PREPEND vorandine_)
install(TARGETS ${embedded} EXPORT ControleVorandineTargets)
install(EXPORT ControleVorandineTargets NAMESPACE vorandine:: DESTINATION ${package})
# Windows are asked for as a component: who has none needs no Qt.
install(TARGETS vorandine_qt EXPORT ControleVorandineQtTargets)
install(EXPORT ControleVorandineQtTargets NAMESPACE vorandine:: DESTINATION ${package})

foreach(folder IN ITEMS text records ports widgets rules trainings experience dif control components
                        store frontends)
    get_filename_component(parent ${headers}/${folder} DIRECTORY)
    install(DIRECTORY src/${folder} DESTINATION ${parent} FILES_MATCHING PATTERN *.h)
endforeach()

configure_package_config_file(cmake/ControleVorandineConfig.cmake.in ControleVorandineConfig.cmake
                              INSTALL_DESTINATION ${package})
write_basic_package_version_file(ControleVorandineConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ControleVorandineConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/ControleVorandineConfigVersion.cmake
        DESTINATION ${package})

install(TARGETS vorandine vorandine-scenario vorandine-dba)
