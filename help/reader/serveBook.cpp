#include "help/reader/serveBook.h"

#include "help/book/littleEndian.h"
#include "help/reader/Container.h"

#include <istream>
#include <ostream>

namespace zorvo::help {

namespace {

void answer(std::ostream& answers, ReaderState state, const std::string& bytes = {})
{
    const std::string& sent = state == ReaderState::done ? bytes : std::string();
    std::string header(1, static_cast<char>(state));
    for (unsigned shift = 0; shift < 32; shift += 8)
        header.push_back(static_cast<char>(sent.size() >> shift & 0xffU));
    answers << header << sent;
    answers.flush();
}

} // namespace

int serveBook(const std::string& file, std::istream& requests, std::ostream& answers,
              const Confinement& confinement)
{
    ReaderState state = checkContainer(file);
    std::unique_ptr<Container> book;
    if (state == ReaderState::done) {
        confinement.toReadingFiles();
        book = Container::open(file);
        confinement.toOpenFiles();
        state = book ? ReaderState::done : ReaderState::damaged;
    }
    answer(answers, state);
    if (!book)
        return 0;

    std::string header(kHeaderSize, '\0');
    while (requests.read(header.data(), static_cast<std::streamsize>(header.size()))) {
        const std::uint32_t length = *u32At(header, 1);
        if (length > kMostRequest)
            return 1;
        std::string text(length, '\0');
        if (!requests.read(text.data(), static_cast<std::streamsize>(length)))
            return 1;
        std::string bytes;
        const auto kind = static_cast<RequestKind>(header[0]);
        if (kind == RequestKind::list)
            state = book->list(bytes);
        else
            state = book->read(text, bytes);
        answer(answers, state, bytes);
    }
    return 0;
}

} // namespace zorvo::help
