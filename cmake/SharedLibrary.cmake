# libKyODBC.so.1: the library's objects, linked so that only the listed names can be seen from outside.

set(exports_script ${PROJECT_BINARY_DIR}/KyODBC.map)
set(exports_lists exports.txt exports_ext.txt exports_cpp.txt)
list(TRANSFORM exports_lists PREPEND ${PROJECT_SOURCE_DIR}/frame/)
add_custom_command(
  OUTPUT ${exports_script}
  COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/make_version_script.py ${exports_lists}
          ${exports_script}
  DEPENDS ${PROJECT_SOURCE_DIR}/tools/make_version_script.py ${exports_lists}
  COMMENT "Writing the linker version script"
  VERBATIM)
add_custom_target(kyodbc_exports_script DEPENDS ${exports_script})

add_library(KyODBC SHARED $<TARGET_OBJECTS:kyodbc_objects>)
add_library(KyODBC::KyODBC ALIAS KyODBC)
add_dependencies(KyODBC kyodbc_exports_script)
set_target_properties(KyODBC PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  LINKER_LANGUAGE CXX
  LINK_DEPENDS ${exports_script})
target_link_options(KyODBC PRIVATE LINKER:--version-script=${exports_script})
target_link_libraries(KyODBC PUBLIC ODBC::ODBC PRIVATE $<BUILD_INTERFACE:odbcinst>
                      $<BUILD_INTERFACE:spdlog::spdlog> $<BUILD_INTERFACE:fmt::fmt>)

# Programs in this tree include <KyODBC.h> and its extensions exactly as they would with the library installed.
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/include)
file(CREATE_LINK ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/include/kyodbc SYMBOLIC)
foreach(header KyODBC.h KyODBCDiag.h)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${header} ${PROJECT_BINARY_DIR}/include/${header} COPYONLY)
endforeach()
target_include_directories(KyODBC INTERFACE
  $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
