// SPDX-License-Identifier: MIT
#include "viewer/LoadMessages.h"

#include "host/Text.h"

#include <algorithm>

namespace viewer {

host::DialogAnswer LoadMessages::Message(const std::string &text, const std::string &title,
                                         host::DialogIcon icon, host::DialogButtons buttons)
{
    const auto known =
        std::find_if(m_texts.begin(), m_texts.end(),
                     [&text](const std::string &other) { return host::EqualsNoCase(other, text); });
    if (known != m_texts.end())
        return host::DialogAnswer::Ok;
    m_texts.push_back(text);
    if (m_silent)
        return host::DialogAnswer::Cancel;
    const host::DialogAnswer answer = m_dialogs.Message(text, title, icon, buttons);
    m_silent = answer == host::DialogAnswer::Cancel;
    return answer;
}

void LoadMessages::Clear(bool silent)
{
    m_texts.clear();
    m_silent = silent;
}

} // namespace viewer
