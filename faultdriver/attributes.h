// Attributes and what a driver tells of itself, for the plain and the wide form of each function alike.
#ifndef KYODBC_FAULTDRIVER_ATTRIBUTES_H
#define KYODBC_FAULTDRIVER_ATTRIBUTES_H

#include <sql.h>

namespace kyfault {

SQLRETURN SetConnectionAttribute(const char* symbol, SQLHDBC connection, SQLINTEGER attribute,
                                 SQLPOINTER value, SQLINTEGER length);
SQLRETURN GetConnectionAttribute(const char* symbol, SQLHDBC connection, SQLINTEGER attribute,
                                 SQLPOINTER value, SQLINTEGER size, SQLINTEGER* length);
SQLRETURN SetStatementAttribute(const char* symbol, SQLHSTMT statement, SQLINTEGER attribute,
                                SQLPOINTER value, SQLINTEGER length);
SQLRETURN GetStatementAttribute(const char* symbol, SQLHSTMT statement, SQLINTEGER attribute,
                                SQLPOINTER value, SQLINTEGER size, SQLINTEGER* length);
// `character`: the size of the characters in which texts are told.
SQLRETURN GetInformation(const char* symbol, SQLHDBC connection, SQLUSMALLINT item, SQLPOINTER value,
                         SQLSMALLINT size, SQLSMALLINT* length, int character);

}  // namespace kyfault

#endif
