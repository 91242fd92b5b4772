#pragma once

#include "help/viewer/Book.h"
#include "tests/help/TestBook.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/testFolders.h"

#include <QString>
#include <gtest/gtest.h>

namespace zorvo::help {

inline QString reader()
{
    return QString::fromStdString((buildFolder() / "bin/brendle-help-reader").string());
}

/// Books in a folder of the test's own, read by the real reader.
class HelpTest : public testing::Test {
protected:
    std::string path(const std::string& name = "book.chm") const { return folder_ / name; }
    QString file(const std::string& name = "book.chm") const { return QString::fromStdString(path(name)); }

    std::unique_ptr<Book> open(const TestBook& book)
    {
        book.write(path());
        return open(path());
    }
    std::unique_ptr<Book> open(const std::string& native)
    {
        return Book::open(reader(), QString::fromStdString(native), state_);
    }

    /// Three pages, contents, index, and topic 1.
    static TestBook threePages()
    {
        return TestBook()
            .title("The Book")
            .start("one.htm")
            .page("/one.htm", "First", "<p>alpha <a href=\"two.htm#there\">two</a></p>")
            .page("/two.htm", "Second", "<p>beta gamma</p><p><a name=\"there\"></a>delta alpha</p>")
            .page("/sub/three.htm", "Third", "<p>alpha beta</p>")
            .contents({{"First", "one.htm"}, {"Second", "two.htm"}, {"Third", "sub/three.htm"}})
            .index({{"alpha", "one.htm"}, {"beta", "two.htm"}})
            .number(1, "two.htm")
            .number(2, "sub/three.htm")
            .number(3, "gone.htm");
    }

    TemporaryFolder folder_{TemporaryFolder::Place::memory};
    ReaderState state_{};
};

} // namespace zorvo::help
