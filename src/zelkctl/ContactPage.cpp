// SPDX-License-Identifier: MIT
#include "zelkctl/ContactPage.h"

#include "content/HealthText.h"
#include "gl/PictureSheet.h"
#include "zelkctl/Session.h"

namespace zelkctl {
namespace {

/// The page must work without a network, on dark screens and on paper. It is well-formed XML, so
/// that scripts can read it.
constexpr const char *kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8"/>
<meta name="viewport" content="width=device-width, initial-scale=1"/>
<title>Contact sheet</title>
<style>
:root { color-scheme: light dark; }
body { font: 15px/1.4 sans-serif; margin: 1.5em auto; max-width: 90em; padding: 0 1em; }
h2 { font-size: 1.2em; margin: 1.5em 0 .4em; overflow-wrap: anywhere; }
dl { display: grid; gap: 0 1em; grid-template-columns: max-content 1fr; margin: 0 0 1em; }
dd { margin: 0; overflow-wrap: anywhere; }
.sheet { display: grid; gap: 1em; grid-template-columns: repeat(auto-fill, minmax(15em, 1fr)); }
figure { border: 1px solid #8886; border-radius: 4px; margin: 0; overflow: hidden; }
figure > img, figure > .none { aspect-ratio: 2; display: block; width: 100%; }
.none { align-content: center; background: #8882; box-sizing: border-box; overflow: hidden; padding: 1em; text-align: center; }
figcaption { padding: .5em .7em; }
figcaption div { overflow-wrap: anywhere; }
figcaption div:first-child { font-weight: bold; }
@media print { body { font-size: 9pt; max-width: none; } figure { break-inside: avoid; } h2 { break-after: avoid; } }
</style>
</head>
<body>
<h1>Contact sheet</h1>
)";

/// Returns the texts below a picture.
std::vector<std::string> captionsOf(const ContactCell &cell)
{
    std::vector<std::string> lines{cell.vehicle, cell.name, cell.figures};
    if (cell.count > 1)
        lines.front() += " × " + std::to_string(cell.count);
    if (cell.flipped)
        lines.front() += " (flipped)";
    std::erase(lines, "");
    return lines;
}

std::string pictureOf(ContactCell &cell, const DrawCell &draw)
{
    const std::string png = draw(cell);
    if (png.empty())
        return "<div class=\"none\">" + content::XmlText(cell.reason) + "</div>";
    return "<img loading=\"lazy\" alt=\"" + content::XmlText(cell.vehicle) + "\" src=\"" +
           korvat::DataUrl(png) + "\"/>";
}

std::string figureOf(ContactCell &cell, const DrawCell &draw)
{
    std::string text = "<figure>" + pictureOf(cell, draw) + "<figcaption>";
    for (const std::string &line : captionsOf(cell))
        text += "<div>" + content::XmlText(line) + "</div>";
    return text + "</figcaption></figure>\n";
}

void addTo(korvat::PictureSheet &sheet, ContactSection &section, const DrawCell &draw)
{
    sheet.AddTitle(section.title);
    for (const auto &[label, text] : section.lines)
        sheet.AddLine(label, text);
    for (ContactCell &cell : section.cells) {
        const std::string png = draw(cell); // may store the reason
        sheet.AddPicture(png, cell.reason, captionsOf(cell));
    }
    sheet.EndPictures();
}

} // namespace

std::string HtmlContactPage(std::vector<ContactSection> sections, const DrawCell &draw)
{
    std::string page = kHead;
    for (ContactSection &section : sections) {
        page += "<h2>" + content::XmlText(section.title) + "</h2>\n";
        if (!section.lines.empty()) {
            page += "<dl>\n";
            for (const auto &[label, text] : section.lines)
                page += "<dt>" + content::XmlText(label) + "</dt><dd>" + content::XmlText(text) +
                        "</dd>\n";
            page += "</dl>\n";
        }
        page += "<div class=\"sheet\">\n";
        for (ContactCell &cell : section.cells)
            page += figureOf(cell, draw);
        page += "</div>\n";
    }
    return page + "</body>\n</html>\n";
}

std::string PngContactPage(std::vector<ContactSection> sections, int width, const DrawCell &draw)
{
    korvat::PictureSheet measured(width);
    for (ContactSection &section : sections) {
        addTo(measured, section, [](ContactCell &) { return std::string(); });
        if (measured.Height() > korvat::PictureSheet::kHighest)
            throw Failure("there are too many vehicles for one picture; write an .html file, or "
                          "choose fewer with --filter");
    }
    korvat::PictureSheet sheet(width, measured.Height());
    for (ContactSection &section : sections)
        addTo(sheet, section, draw);
    return sheet.Png();
}

} // namespace zelkctl
