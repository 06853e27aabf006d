// SPDX-License-Identifier: MIT
#include "host/RuntimeError.h"

#include "host/OutOfMemory.h"

#include <new>
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

namespace {

/// Returns a plain description for the number, used when there is no detail.
const char *plainText(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::Overflow:
        return "A number is too large.";
    case ErrorNumber::SubscriptOutOfRange:
        return "An entry has fewer values than it needs.";
    case ErrorNumber::TypeMismatch:
        return "A value that must be a number is not one.";
    case ErrorNumber::ObjectNotSet:
        return "A block that is needed is missing.";
    case ErrorNumber::PathFileAccess:
        return "A file or folder cannot be used.";
    default:
        return ClassicText(number);
    }
}

/// Returns advice for the user, or "" if there is none for this number.
const char *adviceFor(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::FileNotFound:
        return "Was it moved, renamed or deleted? F5 reads the lists again.";
    case ErrorNumber::PathNotFound:
        return "Check the path, and the location under File > Set MSTS Location.";
    case ErrorNumber::PermissionDenied:
        return "Check that the file is not read-only, that you may change the folder, and that no "
               "other program has the file open.";
    case ErrorNumber::SubscriptOutOfRange:
    case ErrorNumber::TypeMismatch:
    case ErrorNumber::ObjectNotSet:
        return "The file is damaged or incomplete: install it again, or correct it in a text "
               "editor that keeps UTF-16.";
    default:
        return "";
    }
}

} // namespace

RuntimeError::RuntimeError(ErrorNumber number, std::string detail)
    : m_number(number)
    , m_detail(std::move(detail))
    , m_what(m_detail.empty() ? plainText(number) : m_detail)
{
}

std::string Explained(const std::exception &error)
{
    const bool names =
        !dynamic_cast<const std::bad_alloc *>(&error) || dynamic_cast<const OutOfMemory *>(&error);
    std::string text = names ? error.what() : "There is not enough memory.";
    const auto *const known = dynamic_cast<const RuntimeError *>(&error);
    const std::string advice = known ? adviceFor(known->Code()) : "";
    return advice.empty() ? text : text + "\n\n" + advice;
}

} // namespace host
