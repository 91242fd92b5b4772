#include "help/viewer/PageView.h"

#include "tests/help/HelpTest.h"
#include "tests/support/pictureBytes.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QSignalSpy>

namespace zorvo::help {
namespace {

std::string repeated(const std::string& text, int nTimes)
{
    std::string all;
    for (int i = 0; i < nTimes; ++i)
        all += text;
    return all;
}

class PageViewTest : public HelpTest {
protected:
    void show(const TestBook& book)
    {
        book_ = open(book);
        ASSERT_TRUE(book_);
        view_ = std::make_unique<PageView>(*book_);
        view_->setWebOpener([this](const QString& address) { opened_.append(address); });
        view_->resize(600, 400);
    }
    ~PageViewTest() override { view_.reset(); }

    QString text() const { return view_->toPlainText(); }
    /// The colour is somewhere on the page as it is painted.
    bool paints(QColor colour)
    {
        const QImage image = view_->grab().toImage();
        for (int y = 0; y < image.height(); y += 2)
            for (int x = 0; x < image.width(); x += 2)
                if (image.pixelColor(x, y) == colour)
                    return true;
        return false;
    }
    void click(const QString& link) { view_->setSource(view_->source().resolved(QUrl(link))); }

    std::unique_ptr<Book> book_;
    std::unique_ptr<PageView> view_;
    QStringList opened_;
};

TEST_F(PageViewTest, APageIsShownWithItsPicturesAndStyles)
{
    show(TestBook()
             .add("/sub/a.htm", "<html><head><link rel=stylesheet href=\"../css/s.css\"></head><body>"
                                "<p class=x>styled</p><img src=\"red.png\"></body></html>")
             .add("/css/s.css", ".x { background-color: #00ff00; }")
             .add("/sub/red.png", pictureBytes(40, "PNG", Qt::red)));
    view_->showPage(QStringLiteral("/sub/a.htm"));
    EXPECT_TRUE(text().contains(QStringLiteral("styled")));
    EXPECT_TRUE(paints(Qt::red));
    EXPECT_TRUE(paints(QColor(0, 255, 0)));
}

TEST_F(PageViewTest, LinksLeadToPagesAndTheirAnchors)
{
    show(threePages());
    view_->showPage(QStringLiteral("/one.htm"));
    click(QStringLiteral("two.htm#there"));
    EXPECT_EQ(view_->page(), QStringLiteral("/two.htm"));
    EXPECT_EQ(view_->source().fragment(), QStringLiteral("there"));
    click(QStringLiteral("sub/three.htm"));
    EXPECT_EQ(view_->page(), QStringLiteral("/sub/three.htm"));
    view_->backward();
    EXPECT_EQ(view_->page(), QStringLiteral("/two.htm"));
    view_->forward();
    EXPECT_EQ(view_->page(), QStringLiteral("/sub/three.htm"));
}

TEST_F(PageViewTest, NothingIsTakenFromTheUsersOwnFiles)
{
    const std::string secret = path("secret.png");
    writeFile(secret, pictureBytes(40, "PNG", Qt::magenta));
    writeFile(path("secret.htm"), "<p>secret words</p>");
    writeFile(path("secret.css"), "p { background-color: #ff00ff; }");
    show(TestBook().add("/a.htm", "<html><head><link rel=stylesheet type=text/css href=\"file://" +
                                      path("secret.css") + "\"><style>@import url(\"file://" +
                                      path("secret.css") + "\"); body { background-image: url(\"file://" +
                                      secret + "\"); }</style></head><body><p>page</p><img src=\"" + secret +
                                      "\"><img src=\"file://" + secret +
                                      "\"><img src=\"qrc:/x\"><img src=\":/x\"></body></html>"));
    view_->showPage(QStringLiteral("/a.htm"));
    EXPECT_TRUE(text().contains(QStringLiteral("page")));
    EXPECT_FALSE(paints(Qt::magenta));
    QSignalSpy refused(view_.get(), &PageView::refused);
    view_->setSource(QUrl(QStringLiteral("file://") + file("secret.htm")));
    EXPECT_EQ(refused.count(), 1);
    EXPECT_FALSE(text().contains(QStringLiteral("secret")));
    EXPECT_EQ(view_->page(), QStringLiteral("/a.htm"));
}

TEST_F(PageViewTest, WebAddressesGoToTheBrowserAndThePageStays)
{
    show(threePages());
    view_->showPage(QStringLiteral("/one.htm"));
    click(QStringLiteral("https://www.example.com/x?y=1"));
    EXPECT_EQ(opened_, QStringList(QStringLiteral("https://www.example.com/x?y=1")));
    EXPECT_EQ(view_->page(), QStringLiteral("/one.htm"));
}

TEST_F(PageViewTest, ScriptsAndOtherBooksAreRefused)
{
    show(threePages());
    view_->showPage(QStringLiteral("/one.htm"));
    QSignalSpy refused(view_.get(), &PageView::refused);
    click(QStringLiteral("javascript:alert(1)"));
    click(QStringLiteral("ms-its:other.chm::/x.htm"));
    EXPECT_EQ(refused.count(), 2);
    EXPECT_EQ(opened_, QStringList());
    EXPECT_EQ(view_->page(), QStringLiteral("/one.htm"));
}

TEST_F(PageViewTest, AMissingPageIsToldInItsPlace)
{
    show(threePages());
    view_->showPage(QStringLiteral("/gone.htm"));
    EXPECT_TRUE(text().contains(QStringLiteral("This page isn't in the help file")));
    EXPECT_TRUE(text().contains(QStringLiteral("gone.htm")));
}

TEST_F(PageViewTest, AnEmptyPageIsEmpty)
{
    show(TestBook().add("/a.htm", "").page("/b.htm", "B", "text"));
    view_->showPage(QStringLiteral("/b.htm"));
    view_->showPage(QStringLiteral("/a.htm"));
    EXPECT_EQ(text(), QString());
}

TEST_F(PageViewTest, MarkupInANameIsShownAsItIs)
{
    show(threePages());
    view_->showPage(QStringLiteral("/<b>x</b>.htm"));
    EXPECT_TRUE(text().contains(QStringLiteral("<b>x</b>.htm")));
}

TEST_F(PageViewTest, HostilePagesAreShownInBoundedTime)
{
    const std::string deep = repeated("<table><tr><td><div>", 20000);
    show(TestBook()
             .page("/spans.htm", "S",
                   "<table><tr><td colspan=2000000000>cell</td><td rowspan='1000000000'>b</td>"
                   "</tr></table>")
             .page("/deep.htm", "D", deep + "bottom")
             .page("/nested.htm", "N", repeated("<table><tr><td>", 60) + "bottom")
             .page("/grid.htm", "G",
                   "<table><tr>" + repeated("<td></td>", 20000) + "</tr>" + repeated("<tr></tr>", 20000) +
                       "</table>bottom")
             .page("/list.htm", "L", "<ul>" + repeated("<li>x</li>", 100000) + "</ul>bottom")
             .page("/far.htm", "F", "<table cellpadding=1000000000><tr><td>x<td>bottom</table>")
             .add("/sheet.htm", "<html><head><link rel=stylesheet href=far.css></head><body>" +
                                    repeated("<p>x", 50) + "<p>bottom</body></html>")
             .add("/far.css", "p { margin-top: 1000000px }"));
    QElapsedTimer clock;
    clock.start();
    view_->showPage(QStringLiteral("/spans.htm"));
    view_->grab();
    EXPECT_TRUE(text().contains(QStringLiteral("cell")));
    view_->showPage(QStringLiteral("/deep.htm"));
    view_->grab();
    EXPECT_TRUE(text().contains(QStringLiteral("bottom")));
    for (const char* page : {"/nested.htm", "/grid.htm", "/list.htm", "/far.htm", "/sheet.htm"}) {
        view_->showPage(QLatin1String(page));
        view_->grab();
        EXPECT_TRUE(text().contains(QStringLiteral("bottom"))) << page;
    }
    // Unbounded, this never ends: the limit is no measurement.
    EXPECT_LT(clock.elapsed(), 60000);
}

TEST_F(PageViewTest, OnlyPicturesOfPlainKindsAreDecoded)
{
    show(TestBook()
             .page("/a.htm", "A", "<p>x</p><img src=\"a.svg\"><img src=\"b.png\"><img src=\"c.png\">")
             .add("/a.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" height=\"40\">"
                            "<rect width=\"40\" height=\"40\" fill=\"#ff00ff\"/></svg>")
             .add("/b.png", "no picture")
             .add("/c.png", pictureBytes(40, "PNG", Qt::red).substr(0, 40)));
    view_->showPage(QStringLiteral("/a.htm"));
    EXPECT_FALSE(paints(Qt::magenta));
    EXPECT_TRUE(text().contains(QStringLiteral("x")));
}

TEST_F(PageViewTest, InADarkSessionPlainPagesAreDarkAndColouredOnesOnPaper)
{
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(dark);
    show(TestBook()
             .page("/plain.htm", "P", "<p>plain</p>")
             .page("/own.htm", "O", "<p style=\"color: #000080\">own</p>")
             .add("/sheet.htm", "<link rel=stylesheet href=s.css><p>by sheet</p>")
             .add("/s.css", "p { color: #000080 }"));
    view_->showPage(QStringLiteral("/plain.htm"));
    EXPECT_TRUE(paints(QColor(30, 30, 30)));
    for (const char* page : {"/own.htm", "/sheet.htm"}) {
        view_->showPage(QLatin1String(page));
        EXPECT_TRUE(paints(Qt::white)) << page;
        EXPECT_FALSE(paints(QColor(30, 30, 30))) << page;
    }
    view_->showPage(QStringLiteral("/plain.htm"));
    EXPECT_TRUE(paints(QColor(30, 30, 30)));
    QApplication::setPalette(before);
}

TEST_F(PageViewTest, WordsThatWereLookedForAreMarked)
{
    show(threePages());
    view_->showPage(QStringLiteral("/two.htm"));
    view_->highlight({QStringLiteral("ALPHA"), QStringLiteral("beta")});
    EXPECT_EQ(view_->extraSelections().size(), 2);
    view_->showPage(QStringLiteral("/one.htm"));
    EXPECT_EQ(view_->extraSelections().size(), 0);
}

} // namespace
} // namespace zorvo::help
