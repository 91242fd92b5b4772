#include "platform/linux/filesearch/FileText.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/linux/characterSets.h"
#include "platform/linux/nativeFiles.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace zorvo {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kPiece = std::size_t(256) << 10U;

constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv;
constexpr std::string_view kZipFile = "PK\x03\x04"sv;
constexpr std::string_view kLittleEndianMark = "\xFF\xFE"sv;
constexpr std::string_view kBigEndianMark = "\xFE\xFF"sv;

/// Bytes at the end that begin a character which goes on.
std::size_t unfinishedUtf8(std::string_view bytes)
{
    for (std::size_t n = 1; n <= 3 && n <= bytes.size(); ++n) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - n]);
        if (byte < 0x80)
            return 0;
        if (byte >= 0xC0) {
            const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
            return length > n ? n : 0;
        }
    }
    return 0;
}

/// The same of UTF-16, where the high byte of the last unit stands that far from its end.
std::size_t unfinishedUtf16(std::string_view bytes, std::size_t nHighFromEnd)
{
    const std::size_t nOdd = bytes.size() % 2;
    const std::size_t nWhole = bytes.size() - nOdd;
    const bool bHalfOfPair =
        nWhole > 0 && (static_cast<unsigned char>(bytes[nWhole - nHighFromEnd]) & 0xFCU) == 0xD8U;
    return bHalfOfPair ? nOdd + 2 : nOdd;
}

PlainSet plainSetOf(std::string_view first, bool bWholeFile)
{
    const std::size_t nUnfinished = bWholeFile ? 0 : unfinishedUtf8(first);
    if (first.starts_with(kLittleEndianMark))
        return PlainSet::utf16Little;
    if (first.starts_with(kBigEndianMark))
        return PlainSet::utf16Big;
    return isUtf8(first.substr(0, first.size() - nUnfinished)) ? PlainSet::utf8 : PlainSet::western;
}

/// Bytes at the end that must wait for the next piece.
std::size_t unfinished(std::string_view bytes, PlainSet set)
{
    switch (set) {
    case PlainSet::utf8:
        return unfinishedUtf8(bytes);
    case PlainSet::utf16Little:
        return unfinishedUtf16(bytes, 1);
    case PlainSet::utf16Big:
        return unfinishedUtf16(bytes, 2);
    case PlainSet::western:
        break;
    }
    return 0;
}

std::string utf8Of(std::string_view bytes, PlainSet set)
{
    switch (set) {
    case PlainSet::western:
        return utf8FromWindows1252(bytes);
    case PlainSet::utf16Little:
        return readableFromUtf16(bytes, ByteOrder::littleEndian);
    case PlainSet::utf16Big:
        return readableFromUtf16(bytes, ByteOrder::bigEndian);
    case PlainSet::utf8:
        break;
    }
    return std::string(bytes);
}

bool isBinary(std::string_view first, PlainSet set)
{
    const bool bWide = set == PlainSet::utf16Little || set == PlainSet::utf16Big;
    return !bWide && first.find('\0') != std::string_view::npos;
}

} // namespace

FileText::FileText(TakeText takeText)
    : takeText_(takeText)
    , rtf_(std::move(takeText))
    , buffer_(kPiece, '\0')
{
}

std::size_t FileText::fill(int descriptor, std::size_t nKept)
{
    while (nKept < buffer_.size()) {
        const ssize_t got = ::read(descriptor, buffer_.data() + nKept, buffer_.size() - nKept);
        if (got == 0)
            break;
        if (got > 0)
            nKept += static_cast<std::size_t>(got);
        else if (errno != EINTR)
            throwSystemError(errno);
    }
    return nKept;
}

FileText::Kind FileText::read(int descriptor, const IsEnough& isEnough)
{
    const std::size_t nFirst = fill(descriptor, 0);
    const std::string_view first = std::string_view(buffer_).substr(0, nFirst);
    if (first.starts_with(kCompoundFile) || first.starts_with(kZipFile))
        return Kind::officeFormat;
    if (RtfReader::isRtf(first)) {
        readRtf(descriptor, nFirst, isEnough);
        return Kind::text;
    }
    const PlainSet set = plainSetOf(first, nFirst < buffer_.size());
    if (isBinary(first, set))
        return Kind::noText;
    readPlain(descriptor, set, nFirst, isEnough);
    return Kind::text;
}

void FileText::readRtf(int descriptor, std::size_t nFirst, const IsEnough& isEnough)
{
    std::size_t nHeld = nFirst;
    for (;;) {
        const bool bEnd = nHeld < buffer_.size() || isEnough();
        const std::size_t nDone = rtf_.read(std::string_view(buffer_).substr(0, nHeld), bEnd);
        if (bEnd)
            return;
        nHeld = keepFrom(nDone);
        try {
            nHeld = fill(descriptor, nHeld);
        } catch (...) {
            rtf_.read({}, true); // ready for the next file
            throw;
        }
    }
}

void FileText::readPlain(int descriptor, PlainSet set, std::size_t nFirst, const IsEnough& isEnough)
{
    for (std::size_t nHeld = nFirst; nHeld > 0;) {
        const bool bEnd = nHeld < buffer_.size() || isEnough();
        const std::string_view held = std::string_view(buffer_).substr(0, nHeld);
        const std::size_t nUsed = held.size() - unfinished(held, set);
        takeText_(utf8Of(held.substr(0, nUsed), set));
        if (bEnd)
            return;
        nHeld = fill(descriptor, keepFrom(nUsed));
    }
}

/// Moves what isn't used yet to the front; gives its length. The buffer is full.
std::size_t FileText::keepFrom(std::size_t nUsed)
{
    std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(nUsed), buffer_.end(), buffer_.begin());
    return buffer_.size() - nUsed;
}

} // namespace zorvo
