// The button pictures, pixel by pixel: black strokes on a clear ground, one page with its
// folded corner under three different signs, each sign clear of the page's edges, and a folder.
#include "board/buttonpictures.h"

#include <gtest/gtest.h>

#include <set>

namespace {

// The picture as 16 rows of "#" (opaque black) and "." (clear); "?" for any other pixel.
std::vector<std::string> art(ButtonPicture p) {
    const QImage image = buttonPictureImage(p);
    std::vector<std::string> rows(size_t(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb px = image.pixel(x, y);
            rows[size_t(y)] += qAlpha(px) == 0 ? '.' : px == qRgba(0, 0, 0, 255) ? '#' : '?';
        }
    }
    return rows;
}

} // namespace

TEST(ButtonPictures, AreOnePageUnderThreeSignsAndAFolderInBlackOnClear) {
    const std::vector<std::string> star = art(ButtonPicture::PageStar);
    EXPECT_EQ(star, (std::vector<std::string>{
                        "..########......",
                        "..#......##.....",
                        "..#......#.#....",
                        "..#......#..#...",
                        "..#......#####..",
                        "..#..........#..",
                        "..#..........#..",
                        "..#.....#....#..",
                        "..#...#.#.#..#..",
                        "..#....###...#..",
                        "..#..#######.#..",
                        "..#....###...#..",
                        "..#...#.#.#..#..",
                        "..#.....#....#..",
                        "..#..........#..",
                        "..############..",
                    }));
    std::set<std::vector<std::string>> seen{star};
    for (const ButtonPicture p :
         {ButtonPicture::OpenFolder, ButtonPicture::PageTick, ButtonPicture::PageArrows}) {
        SCOPED_TRACE(static_cast<int>(p));
        const std::vector<std::string> rows = art(p);
        seen.insert(rows);
        int sign = 0;
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x) {
                EXPECT_NE(rows[y][x], '?') << x << "," << y;
                // A sign keeps a clear pixel off the page's sides and bottom: around it the
                // page is the star's.
                if (x >= 4 && x <= 11 && y >= 5 && y <= 13)
                    sign += rows[y][x] == '#';
                else if (p != ButtonPicture::OpenFolder) {
                    EXPECT_EQ(rows[y][x], star[y][x]) << x << "," << y;
                }
            }
        }
        EXPECT_GE(sign, 10);
    }
    EXPECT_EQ(seen.size(), 4u);
}
