# Where an installation puts things, below its prefix.

# Debian has a folder of libraries for each architecture, below /usr as below /usr/local. The packages are made
# for /usr whatever prefix the build was configured with, so the folder must not depend on that as CMake's own
# choice, "lib", does.
if(EXISTS /etc/debian_version AND CMAKE_LIBRARY_ARCHITECTURE AND "${CMAKE_INSTALL_LIBDIR}" MATCHES "^(lib)?$")
  set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Libraries" FORCE)
endif()
include(GNUInstallDirs)

# Debian's Python looks here below /usr; below another prefix the folder goes into PYTHONPATH.
set(KYODBC_PYTHON_FOLDER lib/python3/dist-packages CACHE PATH "The package for Python")
