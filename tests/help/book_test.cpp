#include "tests/help/HelpTest.h"
#include "tests/support/testFolders.h"

#include <QElapsedTimer>
#include <QFile>
#include <gmock/gmock.h>

namespace zorvo::help {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class BookTest : public HelpTest {};

TEST_F(BookTest, ABookTellsItsTitleContentsIndexAndTopics)
{
    const auto book = open(threePages());
    ASSERT_TRUE(book);
    EXPECT_EQ(book->title(), QStringLiteral("The Book"));
    ASSERT_THAT(book->contents(), SizeIs(3));
    EXPECT_EQ(book->contents()[2].name, "Third");
    ASSERT_THAT(book->index(), SizeIs(2));
    EXPECT_EQ(book->index()[0].name, "alpha");
    EXPECT_EQ(book->defaultPage(), QStringLiteral("/one.htm"));
    EXPECT_EQ(book->numberedTopic(2)->target, "/sub/three.htm");
    EXPECT_FALSE(book->numberedTopic(77));
    EXPECT_EQ(book->pages(), QStringList({QStringLiteral("/one.htm"), QStringLiteral("/sub/three.htm"),
                                          QStringLiteral("/two.htm")}));
}

TEST_F(BookTest, ACompressedBookOfAnOldCompilerIsReadInItsOwnCharacters)
{
    const auto book = open((sourceFolder() / "tests/help/files/compressed.chm").string());
    ASSERT_TRUE(book);
    EXPECT_EQ(book->title(), QStringLiteral("Bücher"));
    EXPECT_EQ(book->contents().at(0).name, "Bücher");
    EXPECT_EQ(book->index().at(1).name, "Prüfer");
    EXPECT_EQ(book->numberedTopic(70000)->target, "/long.htm");
    EXPECT_TRUE(book->page(QStringLiteral("/start.htm"))->contains(QStringLiteral("Bücher für Prüfer")));
}

TEST_F(BookTest, ABookWithoutContentsListsItsPages)
{
    const auto book = open(TestBook().page("/b.htm", "B", "").page("/a.html", "A", "").add("/x.gif", "x"));
    ASSERT_TRUE(book);
    ASSERT_THAT(book->contents(), SizeIs(2));
    EXPECT_EQ(book->contents()[0].name, "a.html");
    EXPECT_EQ(book->defaultPage(), QStringLiteral("/a.html"));
    EXPECT_EQ(book->title(), QStringLiteral("book.chm"));
    EXPECT_THAT(book->index(), IsEmpty());
}

TEST_F(BookTest, ContentsThatNobodyNamesAreFoundByTheirKind)
{
    const auto book =
        open(TestBook().page("/a.htm", "A", "").add("/other.HHC", siteMapText({{"Found", "a.htm"}})));
    ASSERT_TRUE(book);
    EXPECT_EQ(book->contents().at(0).name, "Found");
}

TEST_F(BookTest, APageIsReadInTheCharactersThatItNames)
{
    const auto book = open(TestBook()
                               .add("/a.htm", "<meta charset=\"windows-1251\">\xcf\xf0\xe8")
                               .add("/b.htm", "<meta http-equiv=Content-Type content='text/html; "
                                              "charset=ISO-8859-2'>\xb1")
                               .add("/c.htm", "\xef\xbb\xbf\xc3\xa9")
                               .add("/d.htm", std::string("\xff\xfe\xe9\0", 4))
                               .add("/e.htm", "<meta charset=nonsense>\xe9")
                               .add("/f.htm", "\xc3\xa9"));
    ASSERT_TRUE(book);
    const auto text = [&](const char* page) {
        const QString all = *book->page(QLatin1String(page));
        return all.mid(all.lastIndexOf(QLatin1Char('>')) + 1);
    };
    EXPECT_EQ(text("/a.htm"), QStringLiteral("При"));
    EXPECT_EQ(text("/b.htm"), QStringLiteral("ą"));
    EXPECT_EQ(text("/c.htm"), QStringLiteral("é"));
    EXPECT_EQ(text("/d.htm"), QStringLiteral("é"));
    EXPECT_EQ(text("/e.htm"), QStringLiteral("é"));
    EXPECT_EQ(text("/f.htm"), QStringLiteral("é"));
}

TEST_F(BookTest, AFileThatIsntThereIsMissingAndAnythingElseDamaged)
{
    EXPECT_FALSE(open(path("none.chm")));
    EXPECT_EQ(state_, ReaderState::missing);
    writeFile(path(), "no help at all");
    EXPECT_FALSE(open(path()));
    EXPECT_EQ(state_, ReaderState::damaged);
}

TEST_F(BookTest, AContainerWithoutAnyPageIsNoBook)
{
    EXPECT_FALSE(open(TestBook().add("/picture.gif", "x")));
    EXPECT_EQ(state_, ReaderState::damaged);
}

TEST_F(BookTest, WithoutTheReaderNothingCanBeRead)
{
    threePages().write(path());
    ReaderState state{};
    EXPECT_FALSE(Book::open(QStringLiteral("/no/such/program"), file(), state));
    EXPECT_EQ(state, ReaderState::damaged);
}

TEST_F(BookTest, AReaderThatCrashesIsReplacedAndThePageIsDamaged)
{
    const QString crashing =
        QString::fromStdString((sourceFolder() / "tests/help/files/crashingReader.py").string());
    const auto book = Book::open(crashing, file(), state_);
    ASSERT_TRUE(book);
    for (int i = 0; i < 2; ++i) {
        ReaderState state{};
        EXPECT_FALSE(book->page(QStringLiteral("/two.htm"), &state));
        EXPECT_EQ(state, ReaderState::damaged);
        EXPECT_TRUE(book->page(QStringLiteral("/one.htm"))) << "other pages are still there";
    }
    // A book that keeps crashing its reader isn't tried for ever.
    for (int i = 0; i < 8; ++i)
        book->page(QStringLiteral("/two.htm"));
    ReaderState state{};
    EXPECT_FALSE(book->page(QStringLiteral("/one.htm"), &state));
    EXPECT_EQ(state, ReaderState::damaged);
}

TEST_F(BookTest, AReaderThatSaysNonsenseIsntBelieved)
{
    writeFile(path(), "x");
    writeFile(path("reader"), "#!/bin/sh\nprintf 'd\\377\\377\\377\\377'; sleep 20\n");
    QFile::setPermissions(file("reader"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_FALSE(Book::open(file("reader"), file(), state_));
    EXPECT_EQ(state_, ReaderState::damaged);
}

TEST_F(BookTest, NoTruncatedBookDoesHarm)
{
    const std::string whole = readFile((sourceFolder() / "tests/help/files/compressed.chm").string());
    for (std::size_t size = 0; size < whole.size(); size += 2311) {
        writeFile(path(), whole.substr(0, size));
        const auto book = open(path());
        if (!book)
            continue;
        book->index();
        for (const QString& page : book->pages())
            book->page(page);
    }
}

} // namespace
} // namespace zorvo::help
