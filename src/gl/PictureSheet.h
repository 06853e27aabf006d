// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace korvat {

/// An image of many small pictures in rows, with titles and captions, filled from top to bottom.
/// Requires a QGuiApplication.
class PictureSheet
{
public:
    /// The largest height of an image, in pixels.
    static constexpr int kHighest = 32000;

    /// The pictures are `pictureWidth` pixels wide and half as high. With `height` 0 the sheet only
    /// measures itself.
    explicit PictureSheet(int pictureWidth, int height = 0);
    ~PictureSheet();
    PictureSheet(const PictureSheet &) = delete;
    PictureSheet &operator=(const PictureSheet &) = delete;

    void AddTitle(const std::string &text);
    void AddLine(const std::string &label, const std::string &text);
    /// Adds a picture, the bytes of a PNG file; without one, shows `reason` in its place. The first
    /// of up to three captions is bold.
    void AddPicture(const std::string &png, const std::string &reason,
                    const std::vector<std::string> &captions);
    /// Ends the rows of pictures, before another title.
    void EndPictures();

    /// Returns the height of everything so far, in pixels.
    int Height() const;
    /// Returns the bytes of a PNG file; "" if there is no memory for the image.
    std::string Png();

private:
    struct Page;
    std::unique_ptr<Page> m_page;
};

/// Returns a PNG file as the address of an image in a web page.
std::string DataUrl(const std::string &png);

} // namespace korvat
