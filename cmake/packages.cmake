# Debian packages by `cpack`: libnorq1.0 has the shared library, libnorq-dev what building against
# it needs. For a build with BUILD_SHARED_LIBS and the prefix /usr (scripts/package.sh).
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CONTACT "The norq developers <norq@example.org>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

get_target_property(norq_soversion norq SOVERSION)
set(norq_runtime_package "libnorq${norq_soversion}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${norq_runtime_package}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
    "options of command-line programs - shared library
 norq reads the options of a program from its command line, from configuration
 files and from single calls, and lists them.")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_BINARY_DIR}/triggers")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libnorq-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${norq_runtime_package} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
    "options of command-line programs - development files
 Headers, package files and the linker's name of norq, which reads the options
 of a program from its command line, from configuration files and from single
 calls, and lists them.")

# What Debian wants to find of every package: its licence and its history.
find_program(norq_gzip gzip REQUIRED)
string(TIMESTAMP norq_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/changelog"
     "norq (${PROJECT_VERSION}) unstable; urgency=low\n\n  * See CHANGELOG.md of the sources.\n\n"
     " -- ${CPACK_PACKAGE_CONTACT}  ${norq_date}\n")
execute_process(COMMAND "${norq_gzip}" -9nf "${CMAKE_CURRENT_BINARY_DIR}/changelog")
foreach(component runtime development)
  string(TOUPPER ${component} upper)
  set(doc "${CMAKE_INSTALL_DATAROOTDIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}")
  install(FILES LICENSE DESTINATION "${doc}" COMPONENT ${component} RENAME copyright)
  install(FILES "${CMAKE_CURRENT_BINARY_DIR}/changelog.gz" DESTINATION "${doc}"
          COMPONENT ${component})
endforeach()
include(CPack)
