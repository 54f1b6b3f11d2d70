# Debian packages built by `cpack`: libnorq1.0 contains the shared library, libnorq-dev the files
# for building programs with it. Needs a build with BUILD_SHARED_LIBS and the prefix /usr, as in
# scripts/package.sh.
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # otherwise it becomes the synopsis of both packages
set(CPACK_PACKAGE_CONTACT "The norq developers <norq@example.org>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)

set(norq_description
    "norq sets the options of a C++17 program from its command line, from
configuration files and from function calls, checks and converts the
values, and prints the help.

This package contains")
get_target_property(norq_soversion norq SOVERSION)
set(norq_runtime_package "libnorq${norq_soversion}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${norq_runtime_package}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
    "options of command-line programs - shared library
${norq_description} the shared library.")
set(norq_control "${CMAKE_CURRENT_BINARY_DIR}/control")
file(WRITE "${norq_control}/triggers" "activate-noawait ldconfig\n")
file(WRITE "${norq_control}/shlibs"
     "libnorq ${norq_soversion} ${norq_runtime_package} (>= ${PROJECT_VERSION})\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${norq_control}/triggers" "${norq_control}/shlibs")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libnorq-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${norq_runtime_package} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
    "options of command-line programs - development files
${norq_description} the files for building programs with norq: the
headers, the CMake package and the pkg-config file.")

# Debian requires the licence and the change log of every package.
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
