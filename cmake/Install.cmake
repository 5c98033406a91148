# What an installation holds, in the components that the packages are made of:
#   library      what a program needs that runs
#   development  what a program needs that is built
#   tools        the companion program (tools/), the package for Python, the schemas
#   fault        the fault driver (faultdriver/)

include(CMakePackageConfigHelpers)

install(TARGETS KyODBC EXPORT KyODBCTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        COMPONENT library NAMELINK_COMPONENT development
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# Public headers keep their rooms: they include each other by paths relative to themselves.
set(platform_headers cdatabase cdbexception cfieldexchange cfieldinfo cobject coledatetime crecordset cstring
    result_codes types)
list(TRANSFORM platform_headers PREPEND platform/)
list(TRANSFORM platform_headers APPEND .h)
set(table_headers config diagnosis doctor group image makro patient station test unit)
foreach(table ${table_headers})
  list(APPEND table_headers ${table}_raw_rec)
endforeach()
list(APPEND table_headers records)
list(TRANSFORM table_headers PREPEND tables/)
list(TRANSFORM table_headers APPEND .h)
set(KYODBC_PUBLIC_HEADERS
    frame/KyODBC.h frame/KyODBCDiag.h frame/field_words.h frame/dynamic_rec.h recset/kyrecset.h recset/dbtimestamp.h
    ${platform_headers} ${table_headers})
foreach(header ${KYODBC_PUBLIC_HEADERS})
  cmake_path(GET header PARENT_PATH room)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kyodbc/${room} COMPONENT development)
endforeach()
install(FILES cmake/KyODBC.h cmake/KyODBCDiag.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

install(DIRECTORY schema DESTINATION ${CMAKE_INSTALL_DATADIR}/kyodbc COMPONENT tools USE_SOURCE_PERMISSIONS)
install(DIRECTORY bindings/python/kyodbc DESTINATION ${KYODBC_PYTHON_FOLDER} COMPONENT tools
        FILES_MATCHING PATTERN "*.py" PATTERN "py.typed" PATTERN "__pycache__" EXCLUDE)
install(FILES bindings/python/README.md bindings/python/example.py
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kyodbc-tools/python COMPONENT tools)
# As in the repository, so that links from one guide to another hold.
install(FILES README.md SECURITY.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kyodbc-tools COMPONENT tools)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kyodbc-tools COMPONENT tools
        FILES_MATCHING PATTERN "*.md" PATTERN "*.svg" PATTERN "site" EXCLUDE PATTERN "templates" EXCLUDE
        PATTERN "screens" EXCLUDE)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libkyodbc-dev COMPONENT development
        FILES_MATCHING PATTERN "*.c" PATTERN "*.cpp" PATTERN "README.md")
install(FILES bindings/csharp/KyODBC.cs DESTINATION ${CMAKE_INSTALL_DATADIR}/kyodbc/csharp COMPONENT development)
foreach(entry library=libkyodbc1 development=libkyodbc-dev tools=kyodbc-tools fault=libkyfault)
  string(REGEX MATCH "^(.*)=(.*)$" entry ${entry})
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CMAKE_MATCH_2} RENAME copyright
          COMPONENT ${CMAKE_MATCH_1})
endforeach()
install(FILES CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libkyodbc1 COMPONENT library)

# The version of the call interface stands in the header, one byte for each number of the library's own.
file(STRINGS frame/KyODBC.h version_line REGEX "^#define KYODBC_INTERFACE_VERSION ")
string(REGEX REPLACE "^.* " "" version_word "${version_line}")
math(EXPR KYODBC_INTERFACE_VERSION "${version_word}")
math(EXPR expected_version "${PROJECT_VERSION_MAJOR} * 256 + ${PROJECT_VERSION_MINOR}")
if(NOT KYODBC_INTERFACE_VERSION EQUAL expected_version)
  message(FATAL_ERROR "Version ${PROJECT_VERSION} has the interface version ${expected_version}, "
                      "but frame/KyODBC.h says ${KYODBC_INTERFACE_VERSION}")
endif()

# The pkg-config file finds the prefix from where it lies itself, so that the tree can be moved.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
           BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig
           OUTPUT_VARIABLE KYODBC_PREFIX_FROM_PKGCONFIG)
configure_file(cmake/kyodbc.pc.in kyodbc.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kyodbc.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KyODBC)
configure_package_config_file(cmake/KyODBCConfig.cmake.in KyODBCConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(KyODBCConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/KyODBCConfig.cmake ${PROJECT_BINARY_DIR}/KyODBCConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT development)
install(EXPORT KyODBCTargets NAMESPACE KyODBC:: DESTINATION ${package_dir} COMPONENT development)
