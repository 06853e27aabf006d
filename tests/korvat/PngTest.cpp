// SPDX-License-Identifier: MIT
#include "korvat/formats/Png.h"

#include "Build.h"
#include "korvat/formats/Container.h"
#include "korvat/formats/Dxt.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(PngTest, ContainsThePixelsRowByRow)
{
    korvat::PngRows rows(1, 2);
    const korvat::Pixel pixels[] = {{255, 0, 0, 255}, {1, 2, 3, 4}};
    for (std::size_t y = 0; y < 2; ++y)
        std::copy(pixels[y].begin(), pixels[y].end(), rows.FirstPixel() + y * rows.Stride());
    const std::string png = korvat::EncodePng(rows);
    // The checksums that other programs compute for these chunks.
    EXPECT_EQ(png.substr(0, 33),
              Bytes8({0x89, 'P', 'N', 'G', 13, 10, 26, 10, 0, 0, 0, 13, 'I',  'H',  'D',  'R', 0,
                      0,    0,   1,   0,   0,  0,  2,  8,  6, 0, 0, 0,  0x99, 0x81, 0xB6, 0x27}));
    EXPECT_EQ(png.substr(png.size() - 12),
              Bytes8({0, 0, 0, 0, 'I', 'E', 'N', 'D', 0xAE, 0x42, 0x60, 0x82}));
    const auto size = static_cast<unsigned char>(png.at(36));
    ASSERT_EQ(png.size(), 33u + 12 + size + 12);
    korvat::Container container;
    const std::string stream = "SIMISA@F" + U32s({10}) + "@@@@" + png.substr(41, size);
    ASSERT_EQ(OpenContainer(stream, 100, container).text, "");
    EXPECT_EQ(Bytes8({0, 255, 0, 0, 255, 0, 1, 2, 3, 4}),
              std::string(container.payload.begin(), container.payload.end()));
}

} // namespace
