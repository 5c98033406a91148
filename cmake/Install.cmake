# What an installation holds: the library, its public headers, the data a program needs to find both, and the
# companion program (tools/).

include(CMakePackageConfigHelpers)

install(TARGETS KyODBC EXPORT KyODBCTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
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
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kyodbc/${room})
endforeach()
install(FILES cmake/KyODBC.h cmake/KyODBCDiag.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

install(FILES schema/sqlite.sql DESTINATION ${CMAKE_INSTALL_DATADIR}/kyodbc/schema)
install(DIRECTORY bindings/python/kyodbc DESTINATION ${CMAKE_INSTALL_DATADIR}/kyodbc/python
        FILES_MATCHING PATTERN "*.py" PATTERN "__pycache__" EXCLUDE)
install(FILES bindings/python/README.md bindings/python/example.py
        DESTINATION ${CMAKE_INSTALL_DATADIR}/kyodbc/python)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})

configure_file(cmake/kyodbc.pc.in kyodbc.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kyodbc.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KyODBC)
configure_package_config_file(cmake/KyODBCConfig.cmake.in KyODBCConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(KyODBCConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/KyODBCConfig.cmake ${PROJECT_BINARY_DIR}/KyODBCConfigVersion.cmake
        DESTINATION ${package_dir})
install(EXPORT KyODBCTargets NAMESPACE KyODBC:: DESTINATION ${package_dir})
