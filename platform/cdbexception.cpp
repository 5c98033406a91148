#include "platform/cdbexception.h"

#include <utility>

CException::~CException() = default;

void CException::Delete() { delete this; }

CDBException::CDBException(RETCODE code, CString error, CString state_native_origin)
    : m_nRetCode(code),
      m_strError(std::move(error)),
      m_strStateNativeOrigin(std::move(state_native_origin)) {}

CDBException::~CDBException() = default;
