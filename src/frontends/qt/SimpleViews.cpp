// Captions with their mnemonics, and the state of options and bars.
#include "frontends/qt/SimpleViews.h"

#include "frontends/qt/Colours.h"
#include "frontends/qt/ToolTip.h"

#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOptionSlider>

#include <algorithm>

namespace vorandine::qt {
namespace {

// Twips kept free before the neighbour of a label.
constexpr int Gap = 60;
// What the frame of a button takes of its width, in pixels at any zoom.
constexpr int ButtonFrame = 6;

// The room at both ends of a notice, in pixels.
constexpr int NoticeMargin = 4;

// Bars that move in steps of a line turn this many at once for a page.
constexpr int LinesInPage = 8;

QString literal(QString caption) {
    return caption.replace('&', "&&");
}

// The letter is underlined in the caption; false if the caption has no such letter.
bool underline(QString& caption, char mnemonic) {
    const auto at =
        mnemonic == 0 ? -1 : caption.indexOf(QLatin1Char(mnemonic), 0, Qt::CaseInsensitive);
    caption =
        at < 0 ? literal(caption) : literal(caption.left(at)) + '&' + literal(caption.mid(at));
    return at >= 0;
}

void showCaption(QAbstractButton& native, const widgets::Captioned& control) {
    QString caption = shown(control.Caption());
    const bool inCaption = underline(caption, control.mnemonic());
    if (native.text() == caption)
        return;
    native.setText(caption);
    QString tip = shown(control.hint());
    if (!inCaption && control.mnemonic() != 0) {
        const QKeySequence keys(QStringLiteral("Alt+%1").arg(QLatin1Char(control.mnemonic())));
        native.setShortcut(keys);
        tip = QStringLiteral("%1 (%2)").arg(tip, keys.toString(QKeySequence::NativeText));
    }
    native.setToolTip(tip);
}

// The slider of a long list moves by less than a pixel a line; painting a bar costs more than all
// else that selecting a line does.
class Bar : public QScrollBar {
  public:
    using QScrollBar::QScrollBar;

  protected:
    void sliderChange(SliderChange change) override {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const QRect slider = style()->subControlRect(QStyle::CC_ScrollBar, &option,
                                                     QStyle::SC_ScrollBarSlider, this);
        if (change != SliderValueChange || slider != shown_)
            QScrollBar::sliderChange(change);
        shown_ = slider;
    }

  private:
    QRect shown_;
};

} // namespace

LabelView::LabelView(widgets::Label& label, QWidget& parent)
    : View(label, *new QLabel(&parent)), label_(label), native_(static_cast<QLabel&>(widget())) {
    native_.setTextFormat(Qt::PlainText);
    native_.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    if (label.notice()) {
        native_.setContentsMargins(NoticeMargin, 0, NoticeMargin, 0);
        native_.setPalette(forNotice(native_.palette()));
    }
}

int LabelView::roomInTwips() const {
    const widgets::Place& own = label_.place();
    int end = own.left + own.width;
    if (label_.parent() == nullptr)
        return own.width;
    if (const widgets::Place& whole = label_.parent()->place(); whole.width > 0)
        end = std::max(end, whole.width - Gap);
    for (const widgets::Control* const other : label_.parent()->children()) {
        const widgets::Place& its = other->place();
        if (other->page() == label_.page() && its.left > own.left &&
            its.top < own.top + own.height && own.top < its.top + its.height)
            end = std::min(end, std::max(its.left - Gap, own.left + own.width));
    }
    return end - own.left;
}

// A label as high as what it stands before: their texts are then on one line.
int LabelView::rowHeight() const {
    const widgets::Place& own = label_.place();
    int height = own.height;
    if (label_.parent() != nullptr)
        for (const widgets::Control* const other : label_.parent()->children())
            if (other->page() == label_.page() && other->place().top == own.top)
                height = std::max(height, other->place().height);
    return height;
}

void LabelView::layOut(const Scale& scale) {
    native_.setFont(scale.font(label_.fixedPitch()));
    widgets::Place place = label_.place();
    place.height = rowHeight();
    place_ = scale.rect(place);
    room_ = scale.pixels(roomInTwips());
    fresh_ = true;
}

void LabelView::showWrapped(const QString& caption) {
    native_.setWordWrap(true);
    native_.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    native_.setGeometry(place_);
    native_.setText(caption);
    const QRect needed =
        QFontMetrics(native_.font()).boundingRect(place_, Qt::TextWordWrap, caption);
    native_.setToolTip(needed.height() > place_.height() ? plainToolTip(caption) : QString());
}

void LabelView::sync() {
    View::sync();
    const QString caption = shown(label_.Caption()).trimmed();
    if (!fresh_ && caption == caption_)
        return;
    fresh_ = false;
    caption_ = caption;
    native_.setAccessibleName(caption);
    if (label_.wraps())
        return showWrapped(caption);
    const QFontMetrics metrics(native_.font());
    const int margins = native_.contentsMargins().left() + native_.contentsMargins().right();
    const int needed = metrics.horizontalAdvance(caption) + 1 + margins;
    QRect place = place_;
    // A notice is as long as its text, any other label at least as long as its place.
    place.setWidth(std::max(label_.notice() ? 0 : place_.width(), std::min(needed, room_)));
    if (const int missing = metrics.height() - place.height(); missing > 0)
        place.adjust(0, -missing / 2, 0, missing - missing / 2);
    native_.setGeometry(place);
    native_.setText(metrics.elidedText(caption, Qt::ElideRight, place.width() - margins));
    native_.setToolTip(needed > place.width() ? plainToolTip(caption) : QString());
    native_.setAutoFillBackground(label_.notice() && !caption.isEmpty());
}

ButtonView::ButtonView(widgets::CommandButton& button, QWidget& parent)
    : View(button, *new QPushButton(&parent)), button_(button),
      native_(static_cast<QPushButton&>(widget())) {
    native_.setAutoDefault(false);
    if (!button.hint().empty())
        native_.setAccessibleName(shown(button.hint()));
}

void ButtonView::layOut(const Scale& scale) {
    View::layOut(scale);
    native_.setFont(
        fitted(native_.font(), shown(button_.Caption()), native_.width() - ButtonFrame));
}

void ButtonView::sync() {
    View::sync();
    showCaption(native_, button_);
}

OptionView::OptionView(widgets::OptionButton& option, QWidget& parent)
    : View(option, *new QRadioButton(&parent)), option_(option),
      native_(static_cast<QRadioButton&>(widget())) {
    // Which of them exclude each other is the controls' affair.
    native_.setAutoExclusive(false);
}

void OptionView::sync() {
    View::sync();
    showCaption(native_, option_);
    native_.setChecked(option_.Value());
}

BarView::BarView(widgets::ScrollBar& bar, QWidget& parent)
    : View(bar, *new Bar(bar.place().width > bar.place().height ? Qt::Horizontal : Qt::Vertical,
                         &parent)),
      bar_(bar), native_(static_cast<QScrollBar&>(widget())) {
    native_.setTracking(false); // one change, when the bar is let go
    native_.setPageStep(LinesInPage);
}

void BarView::sync() {
    View::sync();
    const QSignalBlocker quiet(native_);
    native_.setRange(0, std::max(0, bar_.Max()));
    native_.setValue(bar_.Value());
}

} // namespace vorandine::qt
