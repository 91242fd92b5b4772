#include "tests/window/WindowTest.h"
#include "window/ImageList.h"
#include "window/ListBarGroups.h"
#include "window/Picture.h"

#include <QBuffer>
#include <QIcon>
#include <QImage>
#include <QImageWriter>
#include <QPixmap>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;

std::string encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes.toStdString();
}

QImage square(int size, Qt::GlobalColor colour)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

void appendNumber(std::string& bytes, std::uint32_t value, int width)
{
    for (int i = 0; i < width; ++i)
        bytes += static_cast<char>(value >> (8 * i));
}

/// An icon file whose entries are PNG images.
std::string iconFile(const std::vector<QImage>& images)
{
    std::string directory;
    std::string contents;
    appendNumber(directory, 0, 2);
    appendNumber(directory, 1, 2);
    appendNumber(directory, static_cast<std::uint32_t>(images.size()), 2);
    for (const QImage& image : images) {
        const std::string png = encoded(image, "PNG");
        appendNumber(directory, static_cast<std::uint32_t>(image.width()), 1);
        appendNumber(directory, static_cast<std::uint32_t>(image.height()), 1);
        appendNumber(directory, 0, 2);
        appendNumber(directory, 1, 2);
        appendNumber(directory, 32, 2);
        appendNumber(directory, static_cast<std::uint32_t>(png.size()), 4);
        appendNumber(directory, static_cast<std::uint32_t>(6 + 16 * images.size() + contents.size()), 4);
        contents += png;
    }
    return directory + contents;
}

TEST(ImageList, FindsByKeyWithoutRegardToCase)
{
    ImageList images;
    images.add("Word16.ico", nullptr);
    images.add("Excel16.ico", nullptr);
    EXPECT_EQ(images.indexOf("EXCEL16.ICO"), 2);
    EXPECT_EQ(images.indexOf("missing.ico"), -1);
    EXPECT_EQ(images.item(1).sKey, "Word16.ico");
}

TEST(ImageList, RefusesAKeyThatExistsInAnotherCase)
{
    ImageList images;
    images.add("Word16.ico", nullptr);
    EXPECT_EQ(errorNumberOf([&] { images.add("WORD16.ico", nullptr); }), 457);
    EXPECT_EQ(images.count(), 1);
}

TEST(ImageList, RefusesAnIndexOutsideTheList)
{
    ImageList images;
    images.add("a", nullptr);
    EXPECT_EQ(errorNumberOf([&] { images.item(0); }), 9);
    EXPECT_EQ(errorNumberOf([&] { images.item(2); }), 9);
}

TEST(ImageList, TakesItsKeysAgainAfterClear)
{
    ImageList images;
    images.add("a", nullptr);
    images.clear();
    EXPECT_EQ(images.count(), 0);
    EXPECT_EQ(images.indexOf("a"), -1);
    images.add("a", nullptr);
    EXPECT_EQ(images.indexOf("a"), 1);
}

TEST(ListBarGroups, InsertsAtAnIndexFromOneToOnePastTheLast)
{
    ListBarGroups groups;
    groups.add(1, "b", "B", -1);
    groups.add(2, "c", "C", -1);
    groups.add(1, "a", "A", 4);
    EXPECT_EQ(groups.item(1).sCaption, "A");
    EXPECT_EQ(groups.item(1).nImage, 4);
    EXPECT_EQ(groups.item(3).sKey, "c");
    EXPECT_EQ(errorNumberOf([&] { groups.add(5, "e", "", -1); }), 9);
    EXPECT_EQ(errorNumberOf([&] { groups.add(0, "e", "", -1); }), 9);
    EXPECT_EQ(errorNumberOf([&] { groups.item(4); }), 9);
    EXPECT_EQ(errorNumberOf([&] { groups.add(4, "a", "", -1); }), 457);
    EXPECT_EQ(groups.count(), 3);
}

TEST(ListBarGroups, TellsItsListenerOfEveryChange)
{
    ListBarGroups groups;
    int nCalls = 0;
    groups.setListener([&] { ++nCalls; });
    groups.add(1, "a", "A", -1);
    groups.clear();
    EXPECT_EQ(nCalls, 2);
    EXPECT_EQ(groups.count(), 0);
}

TEST(Picture, ReadsEverySizeOfAnIconFile)
{
    const PicturePtr picture =
        Picture::fromBytes(iconFile({square(16, Qt::red), square(48, Qt::green), square(32, Qt::blue)}));
    std::vector<int> widths;
    for (const QSize& size : picture->icon().availableSizes())
        widths.push_back(size.width());
    EXPECT_THAT(widths, testing::UnorderedElementsAre(16, 32, 48));
    EXPECT_EQ(picture->icon().pixmap(16).toImage().pixelColor(3, 3), QColor(Qt::red));
}

TEST(Picture, GivesTheLargestSizeAsThePixmap)
{
    const PicturePtr picture = Picture::fromBytes(iconFile({square(16, Qt::red), square(48, Qt::green)}));
    EXPECT_EQ(picture->pixmap().size(), QSize(48, 48));
}

TEST(Picture, ReadsBitmapsAndPngs)
{
    for (const char* format : {"BMP", "PNG"})
        EXPECT_EQ(Picture::fromBytes(encoded(square(20, Qt::blue), format))->pixmap().size(), QSize(20, 20));
}

TEST(Picture, WithItsFirstSizeDamagedHasTheOthers)
{
    std::string file = iconFile({square(16, Qt::red), square(48, Qt::green)});
    // The first size is said to lie behind the end of the file.
    file.replace(6 + 12, 4, "\xFF\xFF\xFF\x7F");
    const PicturePtr picture = Picture::fromBytes(file);
    EXPECT_EQ(picture->pixmap().size(), QSize(48, 48));
}

TEST(Picture, RefusesBytesThatAreNoPicture)
{
    const std::string png = encoded(square(64, Qt::blue), "PNG");
    for (const std::string& bytes : {std::string(), std::string("no picture"), png.substr(0, 20)})
        EXPECT_EQ(errorNumberOf([&] { Picture::fromBytes(bytes); }), 481);
}

} // namespace
} // namespace zorvo
