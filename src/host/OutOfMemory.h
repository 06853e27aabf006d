// SPDX-License-Identifier: MIT
#pragma once

#include <new>
#include <stdexcept>
#include <string_view>

namespace host {

/// There is not enough memory to work on a file. Not a RuntimeError: those can be findings about a
/// file's content, and this is none.
class OutOfMemory : public std::bad_alloc
{
public:
    explicit OutOfMemory(std::string_view file);
    /// Returns the file's name and what is wrong, for the user.
    const char *what() const noexcept override { return m_text.what(); }

private:
    std::runtime_error m_text; ///< shares its text between copies, which therefore cannot fail
};

/// Returns what `work` returns. If its memory does not suffice, throws OutOfMemory for `file`, or
/// passes on one that already names a file. Names none if `file` is "".
template <typename Work> decltype(auto) NamingIfOutOfMemory(std::string_view file, const Work &work)
{
    try {
        return work();
    } catch (const OutOfMemory &) {
        throw;
    } catch (const std::bad_alloc &) {
        if (file.empty())
            throw;
        throw OutOfMemory(file);
    }
}

} // namespace host
