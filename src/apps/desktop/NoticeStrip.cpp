// Notices as cards: drawn, put in order, and gone through by keyboard.
#include "apps/desktop/NoticeStrip.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>
#include <optional>
#include <utility>

namespace vorandine::desktop {
namespace {

using host::NoticeKind;

constexpr std::size_t AtOnce = 2;
// Of the picture at the left, on whose grid it is drawn.
constexpr double Grid = 16;
constexpr double Stroke = 1.5;
// In pixels, as the forms' other hairlines.
constexpr int Bar = 4;
constexpr int Radius = 3;
constexpr int Ring = 3;

struct Tone {
    QColor ink;
    QColor ground;
};

Tone tone(NoticeKind kind, bool dark) {
    switch (kind) {
    case NoticeKind::Failed:
        return dark ? Tone{0xFF9C94, 0x47201F} : Tone{0xA11420, 0xFCE9E8};
    case NoticeKind::Warning:
        return dark ? Tone{0xF2C063, 0x3D2F10} : Tone{0x744700, 0xFFF2D4};
    default:
        return dark ? Tone{0x9CCBEE, 0x1A3242} : Tone{0x114E75, 0xE4F0F8};
    }
}

bool isDark(const QPalette& palette) {
    constexpr int Middle = 128;
    return palette.color(QPalette::Window).lightness() < Middle;
}

QColor focusRing(bool dark) {
    return dark ? 0x8FB8FF : 0x1A5FE0;
}

void line(QPainterPath& path, QPointF from, QPointF to) {
    path.moveTo(from);
    path.lineTo(to);
}

// A shape of its own a kind: nobody has to tell them by colour.
QPainterPath picture(NoticeKind kind) {
    QPainterPath path;
    switch (kind) {
    case NoticeKind::Failed:
        path.addPolygon(QPolygonF({{5.4, 1.75},
                                   {10.6, 1.75},
                                   {14.25, 5.4},
                                   {14.25, 10.6},
                                   {10.6, 14.25},
                                   {5.4, 14.25},
                                   {1.75, 10.6},
                                   {1.75, 5.4}}));
        path.closeSubpath();
        line(path, {5.75, 5.75}, {10.25, 10.25});
        line(path, {10.25, 5.75}, {5.75, 10.25});
        break;
    case NoticeKind::Warning:
        path.addPolygon(QPolygonF({{8, 2}, {14.5, 13.5}, {1.5, 13.5}}));
        path.closeSubpath();
        line(path, {8, 6.5}, {8, 9.7});
        line(path, {8, 11.6}, {8, 11.7});
        break;
    case NoticeKind::Locked:
        path.addRect(3.75, 7.25, 8.5, 6.25);
        path.moveTo(5.5, 7.25);
        path.lineTo(5.5, 5);
        path.arcTo(5.5, 2.5, 5, 5, 180, -180);
        path.lineTo(10.5, 7.25);
        break;
    case NoticeKind::Told:
        path.addEllipse(QPointF(8, 8), 6.25, 6.25);
        line(path, {8, 7.25}, {8, 11.25});
        line(path, {8, 4.7}, {8, 4.8});
        break;
    }
    return path;
}

} // namespace

class NoticeStrip::Card : public QFrame {
  public:
    Card(const host::Notice& notice, std::function<void()> press, QWidget* parent)
        : QFrame(parent), kind_(notice.kind), label_(new QLabel) {
        setObjectName(QString::fromStdString(notice.name));
        const QString head = QString::fromStdString(notice.head);
        const QString text = QString::fromStdString(notice.text);
        setAccessibleName((head + ' ' + text).trimmed());
        label_->setTextFormat(Qt::RichText);
        label_->setText("<b>" + head.toHtmlEscaped() + "</b> " + text.toHtmlEscaped());
        label_->setWordWrap(true);
        auto* const row = new QHBoxLayout(this);
        row->addWidget(label_, 1);
        if (!notice.button.empty()) {
            button_ = new QPushButton(QString::fromStdString(notice.button));
            button_->setAccessibleDescription(accessibleName());
            connect(button_, &QPushButton::clicked, this, std::move(press));
            row->addWidget(button_);
        }
        stop().setFocusPolicy(Qt::TabFocus);
        makeRoom();
    }

    [[nodiscard]] NoticeKind kind() const noexcept { return kind_; }
    // Where the focus stands when the user has come to it.
    [[nodiscard]] QWidget& stop() {
        return button_ != nullptr ? static_cast<QWidget&>(*button_) : *this;
    }

  protected:
    void changeEvent(QEvent* event) override {
        QFrame::changeEvent(event);
        if (event->type() == QEvent::FontChange)
            makeRoom();
    }
    void paintEvent(QPaintEvent* /*event*/) override {
        const Tone colours = tone(kind_, isDark(palette()));
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF whole = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        QPainterPath shape;
        shape.addRoundedRect(whole, Radius, Radius);
        painter.fillPath(shape, colours.ground);
        painter.setClipPath(shape);
        painter.fillRect(0, 0, Bar, height(), colours.ink);
        painter.setClipping(false);
        painter.setPen(hasFocus() ? QPen(focusRing(isDark(palette())), 2 * Ring)
                                  : QPen(colours.ink, 1));
        painter.drawPath(shape);

        painter.translate(Bar + space(), label_->y() + (label_->height() - side()) / 2.0);
        painter.scale(side() / Grid, side() / Grid);
        painter.setPen(QPen(colours.ink, Stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(picture(kind_));
    }

  private:
    NoticeKind kind_;
    QLabel* label_;
    QPushButton* button_ = nullptr;

    // All grows with the text.
    [[nodiscard]] int side() const { return fontMetrics().height(); }
    [[nodiscard]] int space() const { return side() / 2; }
    void makeRoom() {
        layout()->setContentsMargins(Bar + side() + 2 * space(), space(), space(), space());
        layout()->setSpacing(space());
        if (button_ != nullptr)
            button_->setMinimumWidth(button_->sizeHint().width() + 2 * space());
    }
};

NoticeStrip::NoticeStrip(qt::FormWindow& window)
    : QWidget(&window), window_(window), layout_(new QVBoxLayout(this)), more_(new QPushButton) {
    setObjectName("avis");
    // The form below is no ground of this: presses here mean nothing there.
    setAttribute(Qt::WA_NoMousePropagation);
    layout_->setContentsMargins(8, 8, 8, 0);
    layout_->setSpacing(8);
    layout_->addWidget(more_, 0, Qt::AlignRight);
    more_->setObjectName("autresAvis");
    more_->setFlat(true);
    more_->setFocusPolicy(Qt::TabFocus);
    connect(more_, &QPushButton::clicked, this, [this] {
        all_ = true;
        arrange();
    });
    connect(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, this, [this] { step(true); });
    static const bool told = [] {
        QAccessible::installFactory(
            [](const QString& /*key*/, QObject* object) -> QAccessibleInterface* {
                auto* const card = dynamic_cast<Card*>(object);
                if (card == nullptr)
                    return nullptr;
                return new QAccessibleWidget(card, QAccessible::Notification);
            });
        return true;
    }();
    (void)told;
    arrange();
    window.setHead(*this);
}

void NoticeStrip::tell(const host::Notice& notice, std::function<void()> press) {
    const auto former = find(notice.name);
    // One that says more of the same stays where the eye has found it.
    auto index = former != cards_.end() && (*former)->kind() == notice.kind
                     ? std::optional(former - cards_.begin())
                     : std::nullopt;
    withdraw(notice.name);
    auto* const card = new Card(notice, std::move(press), this);
    const auto place = index ? cards_.begin() + *index
                             : std::find_if(cards_.begin(), cards_.end(), [&](const Card* other) {
                                   return other->kind() <= notice.kind;
                               });
    layout_->insertWidget(static_cast<int>(place - cards_.begin()), card);
    cards_.insert(place, card);
    arrange();
    if (notice.kind == NoticeKind::Failed) {
        QAccessibleEvent event(card, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
}

std::vector<NoticeStrip::Card*>::iterator NoticeStrip::find(const std::string& name) {
    return std::find_if(cards_.begin(), cards_.end(),
                        [&](const Card* card) { return card->objectName().toStdString() == name; });
}

void NoticeStrip::withdraw(const std::string& name) {
    const auto found = find(name);
    if (found == cards_.end())
        return;
    if ((*found)->stop().hasFocus())
        window_.sync();
    delete *found;
    cards_.erase(found);
    arrange();
}

void NoticeStrip::arrange() {
    const std::size_t shown = all_ ? cards_.size() : std::min(AtOnce, cards_.size());
    for (std::size_t i = 0; i < cards_.size(); ++i)
        cards_[i]->setVisible(i < shown);
    const std::size_t left = cards_.size() - shown;
    if (left == 0 && more_->hasFocus())
        window_.sync();
    more_->setVisible(left > 0);
    more_->setText(left == 1 ? QString("Voir l'autre avis")
                             : QString("Voir les %1 autres avis").arg(left));
    setVisible(!cards_.empty());
}

std::vector<QWidget*> NoticeStrip::stops() const {
    std::vector<QWidget*> stops;
    for (Card* const card : cards_)
        if (!card->isHidden())
            stops.push_back(&card->stop());
    if (!more_->isHidden())
        stops.push_back(more_);
    return stops;
}

void NoticeStrip::step(bool forward) {
    std::vector<QWidget*> order = stops();
    if (!forward)
        std::reverse(order.begin(), order.end());
    const auto current = std::find_if(order.begin(), order.end(),
                                      [](const QWidget* stop) { return stop->hasFocus(); });
    const auto next = current == order.end() ? order.begin() : std::next(current);
    if (next == order.end())
        window_.sync(); // the form has it back
    else
        (*next)->setFocus(Qt::TabFocusReason);
}

bool NoticeStrip::focusNextPrevChild(bool next) {
    step(next);
    return true;
}

// None of these keys is meant for the form.
void NoticeStrip::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        window_.sync();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        for (QWidget* const stop : stops())
            if (auto* const button = qobject_cast<QPushButton*>(stop); button && button->hasFocus())
                button->click();
}

} // namespace vorandine::desktop
