# The Debian package, made by the preset "package". What the programs link is found out by
# dpkg-shlibdeps; beside that they need LibreOffice, which quillet-calc starts, and a font whose
# digits are of one width.
if(NOT TARGET quillet-calc)
  message(STATUS "No package can be made without quillet-calc")
  return()
endif()
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "${CONTACT}")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "trial balances of an accounting and tax practice")
set(CPACK_PACKAGE_DESCRIPTION
"Keeps one trial balance for each client and financial year: entry by
keyboard, totals and difference, summary figures, adjustment vouchers that
post straight into the trial balance, account groups and ledgers shared by
all clients, printouts, and the export to a workbook.
.
The database is part of the program; there is no server to set up. Several
stations can share the books on a MariaDB server.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "fonts-noto-core, libmariadb3, libreoffice-calc-nogui | libreoffice-calc, ure")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION TRUE)
include(CPack)
