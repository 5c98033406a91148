# Debian packages from the components of the installation; `./dev package` makes them.

set(KYODBC_MAINTAINER "The KyODBC developers <developers@kyodbc.invalid>" CACHE STRING
    "Who answers for the packages")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kyodbc)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The KyODBC developers")
set(CPACK_PACKAGE_CONTACT ${KYODBC_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL library development tools fault)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${KYODBC_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Other packages' libraries become dependencies; the library itself is named below, in exactly this version.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(drivers "libsqliteodbc | odbc-postgresql | odbc-mariadb")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libkyodbc1)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "This package holds the library. Programs of an X-ray imaging practice use it
to browse and change the practice database through an ODBC data source,
without SQL, with the same answers on SQLite, PostgreSQL and MariaDB.")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS ${drivers})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA
    ${packaging}/libkyodbc1/symbols ${packaging}/libkyodbc1/triggers
    ${packaging}/libkyodbc1/postinst ${packaging}/libkyodbc1/postrm)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkyodbc-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "This package holds what programs are built with: the headers for C and C++,
the link for the linker, the files for CMake and pkg-config, and a
declaration file for C#.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libkyodbc1 (= ${PROJECT_VERSION}), unixodbc-dev")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME kyodbc-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION database)
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "This package holds the program kyodbc, which makes, fills, looks at and
examines practice databases, the package kyodbc for Python, and the schemas
of SQLite, PostgreSQL and MariaDB.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "libkyodbc1 (= ${PROJECT_VERSION}), python3")
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS libsqliteodbc)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SUGGESTS
    "bash-completion, odbc-postgresql, postgresql-client, odbc-mariadb, mariadb-client")
set(CPACK_DEBIAN_TOOLS_PACKAGE_CONTROL_EXTRA ${packaging}/kyodbc-tools/prerm)

set(CPACK_DEBIAN_FAULT_PACKAGE_NAME libkyfault)
set(CPACK_DEBIAN_FAULT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_FAULT_DESCRIPTION "This package holds an ODBC driver that fails on demand. It stands between
the driver manager and a real driver, hands every call on, and fails, delays
or distorts the calls it is told to: for tests of programs, never for a
practice's data source.")
set(CPACK_DEBIAN_FAULT_PACKAGE_DEPENDS odbcinst)
set(CPACK_DEBIAN_FAULT_PACKAGE_SUGGESTS ${drivers})
set(CPACK_DEBIAN_FAULT_PACKAGE_CONTROL_EXTRA ${packaging}/libkyfault/postinst ${packaging}/libkyfault/prerm)

include(CPack)

# All that the packages hold.
add_custom_target(kyodbc_installed DEPENDS KyODBC kyodbc kyfault kyfaultw kyodbc_manual)

add_custom_target(kyodbc_accept_symbols
  COMMAND ${Python3_EXECUTABLE} -B ${packaging}/symbols.py accept $<TARGET_FILE:KyODBC> ${PROJECT_VERSION}
  DEPENDS KyODBC
  COMMENT "Writing new exported names into the symbols file"
  VERBATIM)
