// SPDX-License-Identifier: MIT
#pragma once

#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Settings.h"
#include "ui/dialogs/frmSavePicture.h"
#include "ui/main/frmMain.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

#include <string>

namespace app {

/// Pictures of the active 3D view in a file or on the clipboard.
class PictureCommands
{
public:
    explicit PictureCommands(frmMain &window)
        : m_window(window)
    {
    }

    void Copy()
    {
        if (frmDocument *active = m_window.ActiveDocument()) {
            const QImage picture = active->DrawPicture(active->PictureSize(), false);
            QGuiApplication::clipboard()->setImage(picture);
            m_window.SetStatus("The picture was copied, " + sizeOf(picture) + " pixels.");
        }
    }

    /// Asks for the size, the background and the file. The file is written whole or not at all.
    void SaveAs()
    {
        frmDocument *active = m_window.ActiveDocument();
        if (!active)
            return;
        frmSavePicture wish(active->PictureSize(), &m_window);
        wish.ChooseSize(rememberedSize());
        wish.ChooseTransparent(remembered(kTransparent) == "1");
        if (wish.exec() != QDialog::Accepted)
            return;
        const std::string path = fileFor(*active);
        if (path.empty())
            return;
        m_window.SetStatus("Saving the picture to " + path);
        const QImage picture = write(*active, wish, path);
        remember(wish, path);
        m_window.SetStatus("The picture was saved as " + path + ", " + sizeOf(picture) +
                           " pixels.");
    }

private:
    static constexpr std::string_view kSection = "Windows", kFolder = "PictureFolder",
                                      kSize = "PictureSize", kTransparent = "PictureTransparent";

    /// Shows the wait cursor while it exists.
    struct Waiting
    {
        Waiting() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
        ~Waiting() { QGuiApplication::restoreOverrideCursor(); }
        Waiting(const Waiting &) = delete;
        Waiting &operator=(const Waiting &) = delete;
    };

    static std::string sizeOf(const QImage &picture)
    {
        return std::to_string(picture.width()) + " \u00d7 " + std::to_string(picture.height());
    }

    /// Asks for a file until the user agrees to its name; returns "" if they cancel.
    std::string fileFor(const frmDocument &view) const
    {
        host::Dialogs &dialogs = m_window.Environment().dialogs;
        const std::string title = "Save Picture As";
        const std::string name(host::path::FileName(view.FileName()));
        const std::string folder = remembered(kFolder);
        for (;;) {
            std::string path = dialogs.SaveFile({title, "PNG Pictures|*.png|All Files|*.*",
                                                 name.substr(0, name.rfind('.')) + ".png", folder});
            if (path.empty())
                return {};
            if (!host::path::HasExtension(path, "png"))
                path += ".png";
            if (!m_window.Environment().files.FileExists(path) ||
                dialogs.Message(path + " already exists.  Do you want to overwrite it?", title,
                                host::DialogIcon::Question,
                                host::DialogButtons::YesNoDefaultNo) == host::DialogAnswer::Yes)
                return path;
        }
    }

    QImage write(frmDocument &view, const frmSavePicture &wish, const std::string &path)
    {
        const Waiting cursor;
        const QImage picture = view.DrawPicture(wish.Size(), wish.Transparent());
        QByteArray bytes;
        QBuffer buffer(&bytes);
        if (picture.isNull() || !picture.save(&buffer, "PNG"))
            throw host::RuntimeError(host::ErrorNumber::InvalidCall,
                                     path + ": there is not enough memory for the picture");
        m_window.Environment().files.WriteFile(
            path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
        return picture;
    }

    std::string remembered(std::string_view key) const
    {
        return m_window.Environment().settings.ReadFrom(kSection, key).value_or(std::string());
    }

    /// Returns an empty size for that of the view.
    QSize rememberedSize() const
    {
        const QStringList words = QString::fromStdString(remembered(kSize)).split(QLatin1Char(' '));
        return words.size() == 2 ? QSize(words[0].toInt(), words[1].toInt()) : QSize();
    }

    void remember(const frmSavePicture &wish, const std::string &path)
    {
        host::SettingsStore &settings = m_window.Environment().settings;
        const QSize size = wish.Size();
        settings.WriteTo(kSection, kFolder, std::string(host::path::FolderWithSeparator(path)));
        settings.WriteTo(kSection, kSize,
                         wish.IsShownSize()
                             ? std::string()
                             : std::to_string(size.width()) + ' ' + std::to_string(size.height()));
        settings.WriteTo(kSection, kTransparent, wish.Transparent() ? "1" : "");
    }

    frmMain &m_window;
};

} // namespace app
