# Installs headers, library, package files and licence in the folders of GNUInstallDirs. All paths
# in the package files are relative, so that an installed norq can be moved.
include(CMakePackageConfigHelpers)

install(
  TARGETS norq
  EXPORT norqTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime)
install(
  DIRECTORY include/norq
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
  COMPONENT development)
install(
  FILES LICENSE
  DESTINATION "${CMAKE_INSTALL_DOCDIR}"
  COMPONENT development)

set(norq_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/norq")
write_basic_package_version_file(norqConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
  EXPORT norqTargets
  FILE norqConfig.cmake
  NAMESPACE norq::
  DESTINATION "${norq_package_dir}"
  COMPONENT development)
install(
  FILES "${CMAKE_CURRENT_BINARY_DIR}/norqConfigVersion.cmake"
  DESTINATION "${norq_package_dir}"
  COMPONENT development)

set(norq_pc_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH norq_prefix_from_pc "/${norq_pc_dir}" "/")
configure_file(cmake/norq.pc.in norq.pc @ONLY)
install(
  FILES "${CMAKE_CURRENT_BINARY_DIR}/norq.pc"
  DESTINATION "${norq_pc_dir}"
  COMPONENT development)
