#include "search/forms/BuildDisclosureProgressForm.h"

#include "search/DisclosureProgress.h"
#include "window/DefaultInstance.h"
#include "window/MnemonicLabel.h"
#include "window/spacing.h"

#include <QCoreApplication>
#include <QVBoxLayout>

namespace zorvo {

namespace {

constexpr int kTextWidth = 420;

DefaultInstance<BuildDisclosureProgressForm>& buildDisclosureProgressForm()
{
    static DefaultInstance<BuildDisclosureProgressForm> instance;
    return instance;
}

class FormProgress : public DisclosureProgress {
public:
    void showForm() override
    {
        BuildDisclosureProgressForm& form = buildDisclosureProgressForm().get();
        form.showLabels();
        form.showModeless();
        paint();
    }

    void setProgressValue(const std::string& sText) override
    {
        // Its user may have closed it in a break; the next show makes it anew.
        if (BuildDisclosureProgressForm* form = buildDisclosureProgressForm().ifLoaded())
            form->setProgressValue(sText);
        paint();
    }

    void hideAndUnload() override
    {
        if (BuildDisclosureProgressForm* form = buildDisclosureProgressForm().ifLoaded())
            form->hide();
        buildDisclosureProgressForm().unload();
    }

private:
    /// The build serves no events by itself. Clicks and keys wait for its end.
    static void paint() { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }
};

} // namespace

BuildDisclosureProgressForm::BuildDisclosureProgressForm()
    : Form("BuildDisclosureProgressForm")
    , DisclosureMessageLabel_(new MnemonicLabel(
          "DisclosureMessageLabel",
          QStringLiteral("The Disclosure Document is Being Built and Will Display Shortly . . ."), this))
    , ProgressValue_(new MnemonicLabel("ProgressValue", QString(), this))
{
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    setCaption(QStringLiteral("Disclosure Document Progress Indicator"));
    DisclosureMessageLabel_->setMinimumWidth(kTextWidth);
    DisclosureMessageLabel_->setAlignment(Qt::AlignCenter);
    ProgressValue_->setAlignment(Qt::AlignCenter);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    ProgressValue_->setFont(large);
    // Its place is kept while there is nothing to say.
    ProgressValue_->setMinimumHeight(ProgressValue_->fontMetrics().height());

    auto* layout = new QVBoxLayout(this);
    spaceForm(*layout);
    layout->addWidget(DisclosureMessageLabel_);
    layout->addWidget(ProgressValue_);
}

void BuildDisclosureProgressForm::showLabels()
{
    DisclosureMessageLabel_->setVisible(true);
    ProgressValue_->setVisible(true);
}

void BuildDisclosureProgressForm::setProgressValue(const std::string& sText)
{
    ProgressValue_->setCaption(QString::fromStdString(sText));
    repaint();
}

void installDisclosureProgressForm()
{
    static FormProgress progress;
    disclosureProgress() = &progress;
}

} // namespace zorvo
