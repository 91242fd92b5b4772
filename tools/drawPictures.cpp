// Turns the drawings of a checkout into the picture files that the program loads.
//
//   zorvo-draw [--size=N] DRAWING.svg PICTURE.ico|PICTURE.bmp|PICTURE.png [[--size=N] DRAWING PICTURE ...]
//
// An icon holds the drawing in every size that the windows ask for; a .bmp or .png is N pixels wide and high,
// or has the drawing's own size.

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QSaveFile>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr std::array<int, 5> kIconSizes{16, 20, 24, 32, 48};

std::runtime_error failure(const QString& file, const QString& what)
{
    return std::runtime_error((file + QStringLiteral(": ") + what).toStdString());
}

QImage draw(const QString& drawing, int size)
{
    QImageReader reader(drawing);
    if (size > 0) {
        reader.setScaledSize({size, size});
    }
    const QImage image = reader.read();
    if (image.isNull()) {
        throw failure(drawing, reader.errorString());
    }
    return image.convertToFormat(QImage::Format_ARGB32);
}

void append16(QByteArray& bytes, unsigned value)
{
    bytes.append(static_cast<char>(value & 0xFFU));
    bytes.append(static_cast<char>((value >> 8U) & 0xFFU));
}

void append32(QByteArray& bytes, unsigned value)
{
    append16(bytes, value & 0xFFFFU);
    append16(bytes, value >> 16U);
}

// One size of an icon: a 32-bit bitmap, bottom row first, and an empty one-bit mask, since alpha says it all.
QByteArray iconEntry(const QImage& image)
{
    const auto size = static_cast<unsigned>(image.width());
    const unsigned maskBytes = (size + 31U) / 32U * 4U * size;
    QByteArray entry;
    append32(entry, 40);
    append32(entry, size);
    append32(entry, size * 2);
    append16(entry, 1);
    append16(entry, 32);
    append32(entry, 0);
    append32(entry, size * size * 4 + maskBytes);
    entry.append(QByteArray(16, '\0'));
    for (int y = image.height() - 1; y >= 0; --y) {
        for (int x = 0; x < image.width(); ++x) {
            append32(entry, image.pixel(x, y));
        }
    }
    entry.append(QByteArray(static_cast<qsizetype>(maskBytes), '\0'));
    return entry;
}

QByteArray icon(const QString& drawing)
{
    std::vector<QByteArray> entries;
    entries.reserve(kIconSizes.size());
    for (const int size : kIconSizes) {
        entries.push_back(iconEntry(draw(drawing, size)));
    }
    QByteArray file;
    append16(file, 0);
    append16(file, 1);
    append16(file, static_cast<unsigned>(entries.size()));
    auto offset = static_cast<unsigned>(6 + 16 * entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto side = static_cast<char>(kIconSizes.at(i));
        file.append(side);
        file.append(side);
        append16(file, 0);
        append16(file, 1);
        append16(file, 32);
        const auto length = static_cast<unsigned>(entries[i].size());
        append32(file, length);
        append32(file, offset);
        offset += length;
    }
    for (const QByteArray& entry : entries) {
        file.append(entry);
    }
    return file;
}

/// `size` is the side in pixels, or 0.
QByteArray picture(const QString& drawing, const QString& suffix, int size)
{
    QImage image = draw(drawing, size);
    if (suffix == QStringLiteral("bmp")) {
        QImage opaque(image.size(), QImage::Format_RGB32);
        opaque.fill(Qt::white);
        QPainter(&opaque).drawImage(0, 0, image);
        image = opaque;
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, qPrintable(suffix))) {
        throw failure(drawing, QStringLiteral("can't be written as ") + suffix);
    }
    return bytes;
}

void convert(const QString& drawing, const QString& target, int size)
{
    const QFileInfo info(target);
    QDir().mkpath(info.absolutePath());
    const QString suffix = info.suffix().toLower();
    const QByteArray bytes = suffix == QStringLiteral("ico") ? icon(drawing) : picture(drawing, suffix, size);
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        throw failure(target, file.errorString());
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QString size = QStringLiteral("--size=");
    const QStringList arguments = QGuiApplication::arguments();
    try {
        for (qsizetype i = 1; i < arguments.size(); i += 2) {
            const bool bSized = arguments[i].startsWith(size);
            const int side = bSized ? arguments[i].mid(size.size()).toInt() : 0;
            i += bSized ? 1 : 0;
            if (i + 1 >= arguments.size() || (bSized && side <= 0)) {
                std::fputs("usage: zorvo-draw [--size=N] DRAWING PICTURE [...]\n", stderr);
                return 2;
            }
            convert(arguments[i], arguments[i + 1], side);
        }
    } catch (const std::exception& e) {
        std::fprintf(stderr, "zorvo-draw: %s\n", e.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
