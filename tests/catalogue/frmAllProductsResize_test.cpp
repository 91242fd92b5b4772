#include "tests/catalogue/OfferingsForm.h"

#include <QFrame>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

struct Places {
    QSize tree;
    QSize page;
    int nSearchFromBottom = 0;
    int nHelpFromBottom = 0;
    int nOkFromRight = 0;
    QPoint checkFromBottomLeft;
};

class OfferingsResize : public OfferingsForm {
protected:
    Places places() const
    {
        const auto at = [this](const QWidget& control) { return control.mapTo(form.get(), QPoint()); };
        return {tree().size(),
                page().size(),
                form->height() - at(button("cmdSearch")).y(),
                form->height() - at(button("cmdHelp")).y(),
                form->width() - at(button("cmdOK")).x(),
                {at(check("chkConnectToWeb")).x(), form->height() - at(check("chkConnectToWeb")).y()}};
    }
    void resize(int nWidth, int nHeight)
    {
        form->resize(nWidth, nHeight);
        QCoreApplication::processEvents();
    }
};

TEST_F(OfferingsResize, TreeAndPageTakeUpAllChangeOfSize)
{
    openToFirstPage();
    resize(780, 500);
    const Places before = places();
    resize(880, 560);
    const Places after = places();
    EXPECT_EQ(after.tree.height() - before.tree.height(), 60);
    EXPECT_EQ(after.page.height() - before.page.height(), 60);
    EXPECT_EQ(after.tree.width() + after.page.width() - before.tree.width() - before.page.width(), 100);
    EXPECT_GT(after.tree.width(), before.tree.width());
    EXPECT_GT(after.page.width(), before.page.width());
}

TEST_F(OfferingsResize, ButtonsKeepTheirDistanceFromTheBottomAndTheChecksStayBesideThem)
{
    openToFirstPage();
    resize(780, 500);
    const Places before = places();
    for (const QSize size : {QSize(900, 640), QSize(700, 400), QSize(616, 334)}) {
        resize(size.width(), size.height());
        const Places after = places();
        EXPECT_EQ(after.nSearchFromBottom, before.nSearchFromBottom);
        EXPECT_EQ(after.nHelpFromBottom, before.nHelpFromBottom);
        EXPECT_EQ(after.nOkFromRight, before.nOkFromRight);
        EXPECT_EQ(after.checkFromBottomLeft, before.checkFromBottomLeft);
    }
}

TEST_F(OfferingsResize, BelowTheLimitsNothingMoves)
{
    openToFirstPage();
    resize(780, 500);
    const Places before = places();
    const QPoint search = button("cmdSearch").mapTo(form.get(), QPoint());
    // 9235 and 5000 twips are 615 and 333 pixels.
    for (const QSize size : {QSize(614, 500), QSize(780, 332), QSize(400, 300)}) {
        resize(size.width(), size.height());
        EXPECT_EQ(places().tree, before.tree);
        EXPECT_EQ(places().page, before.page);
        EXPECT_EQ(button("cmdSearch").mapTo(form.get(), QPoint()), search);
    }
    resize(615, 333);
    EXPECT_NE(places().tree, before.tree);
}

TEST_F(OfferingsResize, ThePageIsToldItsSize)
{
    openToFirstPage();
    resize(880, 560);
    const QSize size = static_cast<QFrame&>(page()).contentsRect().size();
    EXPECT_THAT(engine->told, testing::Contains("resize " + std::to_string(size.width()) + " " +
                                                std::to_string(size.height())));
}

} // namespace
} // namespace zorvo
