// SPDX-License-Identifier: MIT
#pragma once

#include "host/Dialogs.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace support {

/// Dialogs that answer from a script and record each prompt on a line: "question|title|text",
/// "input|title|prompt|default", "open|title|name", "save|title|name", "select|caption|list". A
/// question with No as the default begins with "question (No)". A prompt without an answer in the
/// script is cancelled (a message with one button is answered Ok).
class ScriptedDialogs : public host::Dialogs
{
public:
    void Answer(host::DialogAnswer answer) { m_answers.push_back(answer); }
    void AnswerFile(std::string file) { m_texts.push_back(std::move(file)); }
    void AnswerInput(std::string text) { m_texts.push_back(std::move(text)); }
    void AnswerSelection(std::string names) { m_texts.push_back(std::move(names)); }

    /// The initial folder of the last file dialog.
    const std::string &LastFolder() const { return m_folder; }

    /// Called for each prompt before it is answered.
    std::function<void()> onShown;
    const std::string &Log() const { return m_log; }
    std::string TakeLog() { return std::exchange(m_log, {}); }

    host::DialogAnswer Message(const std::string &text, const std::string &title,
                               host::DialogIcon icon, host::DialogButtons buttons) override
    {
        static const char *const kIcons[] = {"none", "information", "question", "critical"};
        const char *const mark = buttons == host::DialogButtons::YesNoDefaultNo ? " (No)" : "";
        write(kIcons[static_cast<int>(icon)] + (mark + ('|' + title)) + '|' + text);
        if (m_answers.empty())
            return buttons == host::DialogButtons::Ok ? host::DialogAnswer::Ok
                                                      : host::DialogAnswer::Cancel;
        const host::DialogAnswer answer = m_answers.front();
        m_answers.pop_front();
        return answer;
    }
    std::optional<std::string> Input(const std::string &prompt, const std::string &title,
                                     const std::string &defaultAnswer) override
    {
        write("input|" + title + '|' + prompt + '|' + defaultAnswer);
        if (m_texts.empty())
            return std::nullopt;
        return nextText();
    }
    std::string OpenFile(const host::FileDialogRequest &request) override
    {
        m_folder = request.folder;
        write("open|" + request.title + '|' + request.initialName);
        return nextText();
    }
    std::string SaveFile(const host::FileDialogRequest &request) override
    {
        m_folder = request.folder;
        write("save|" + request.title + '|' + request.initialName);
        return nextText();
    }
    std::string SelectFromList(const std::string &caption, const std::string &list) override
    {
        write("select|" + caption + '|' + list);
        return nextText();
    }

private:
    void write(const std::string &line)
    {
        m_log += line + '\n';
        if (onShown)
            onShown();
    }
    std::string nextText()
    {
        if (m_texts.empty())
            return {};
        std::string text = m_texts.front();
        m_texts.pop_front();
        return text;
    }

    std::deque<host::DialogAnswer> m_answers;
    std::deque<std::string> m_texts;
    std::string m_log, m_folder;
};

} // namespace support
