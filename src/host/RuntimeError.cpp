// SPDX-License-Identifier: MIT
#include "host/RuntimeError.h"

#include <utility>

namespace host {

const char *ClassicText(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::InvalidCall:
        return "Invalid procedure call or argument";
    case ErrorNumber::Overflow:
        return "Overflow";
    case ErrorNumber::SubscriptOutOfRange:
        return "Subscript out of range";
    case ErrorNumber::TypeMismatch:
        return "Type mismatch";
    case ErrorNumber::FileNotFound:
        return "File not found";
    case ErrorNumber::PermissionDenied:
        return "Permission denied";
    case ErrorNumber::PathFileAccess:
        return "Path/File access error";
    case ErrorNumber::PathNotFound:
        return "Path not found";
    case ErrorNumber::ObjectNotSet:
        return "Object variable or With block variable not set";
    case ErrorNumber::KeyInUse:
        return "This key is already associated with an element of this collection";
    }
    return "Application-defined or object-defined error";
}

RuntimeError::RuntimeError(ErrorNumber number, std::string detail)
    : m_number(number)
    , m_detail(std::move(detail))
    , m_what(ClassicText(number))
{
    if (m_number == ErrorNumber::InvalidCall && !m_detail.empty())
        m_what = m_detail;
    else if (!m_detail.empty())
        m_what += ": " + m_detail;
}

} // namespace host
