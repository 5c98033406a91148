# What an installation holds: the library, its public headers, the data a program needs to find both, and the
# companion program (tools/).

include(CMakePackageConfigHelpers)

install(TARGETS KyODBC EXPORT KyODBCTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# Public headers keep their rooms: they include each other by paths relative to themselves.
file(GLOB platform_headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} platform/c*.h)
set(table_headers config diagnosis doctor group image makro patient station test unit)
foreach(table ${table_headers})
  list(APPEND table_headers ${table}_raw_rec)
endforeach()
list(APPEND table_headers records)
list(TRANSFORM table_headers PREPEND tables/)
list(TRANSFORM table_headers APPEND .h)
set(KYODBC_PUBLIC_HEADERS
    frame/KyODBC.h frame/field_words.h frame/dynamic_rec.h recset/kyrecset.h recset/dbtimestamp.h
    platform/types.h platform/result_codes.h ${platform_headers} ${table_headers})
foreach(header ${KYODBC_PUBLIC_HEADERS})
  cmake_path(GET header PARENT_PATH room)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kyodbc/${room})
endforeach()
install(FILES cmake/KyODBC.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

install(FILES schema/sqlite.sql DESTINATION ${CMAKE_INSTALL_DATADIR}/kyodbc/schema)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})

configure_file(cmake/kyodbc.pc.in kyodbc.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kyodbc.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KyODBC)
configure_package_config_file(cmake/KyODBCConfig.cmake.in KyODBCConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(KyODBCConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/KyODBCConfig.cmake ${PROJECT_BINARY_DIR}/KyODBCConfigVersion.cmake
        DESTINATION ${package_dir})
install(EXPORT KyODBCTargets NAMESPACE KyODBC:: DESTINATION ${package_dir})
