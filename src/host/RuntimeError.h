// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <string>

namespace host {

/// The numbered run-time errors that commands report.
enum class ErrorNumber
{
    InvalidCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    KeyInUse = 457,
};

/// Returns the classic text of an error, for example "Subscript out of range" for 9.
const char *ClassicText(ErrorNumber number);

/// A failure of the machine, or a misuse that the product defines as an error. Thrown by the rooms
/// without Qt, caught and shown at the top level of each command; never leaves the program.
class RuntimeError : public std::exception
{
public:
    /// `detail` holds everything that the user needs to know: the file, the line, what is wrong
    /// there, as "FILE, line 7: REASON". It may be empty.
    explicit RuntimeError(ErrorNumber number, std::string detail = {});

    int Number() const { return static_cast<int>(m_number); }
    ErrorNumber Code() const { return m_number; }
    /// Returns the classic text, for the places that show it: reports and the output of zelkctl.
    std::string Text() const { return ClassicText(m_number); }
    const std::string &Detail() const { return m_detail; }
    /// Returns what is wrong, for the user: the detail, which begins with the file's name, or a
    /// plain sentence for the number if there is no detail.
    const char *what() const noexcept override { return m_what.c_str(); }

private:
    ErrorNumber m_number;
    std::string m_detail;
    std::string m_what;
};

/// Returns the text of a message box: what is wrong, and on a separate line what the user can do
/// about it, if the kind of error implies that.
std::string Explained(const std::exception &error);

} // namespace host
