// A text browser that also sizes what it shows: the native one zooms text and leaves pictures.
#include "frontends/qt/HelpWindow.h"

#include "frontends/qt/Scale.h"
#include "frontends/qt/View.h"
#include "text/Error.h"

#include <QFile>
#include <QFontInfo>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

// The pages stand in a static library, which nobody else would ask for them.
static void initialiseHelpPages() {
    Q_INIT_RESOURCE(help);
}

namespace vorandine::qt {
namespace {

// At zoom 1, in pixels: wide enough for a picture of a form.
constexpr QSize FirstSize(740, 640);
constexpr double Margin = 14;
constexpr int Dark = 128; // of 255

} // namespace

HelpWindow::HelpWindow(double zoom) : zoom_(zoom) {
    initialiseHelpPages();
    setObjectName(QStringLiteral("aide"));
    setFrameShape(QFrame::NoFrame);
    // A program ends with its last form, whatever is still being read.
    setAttribute(Qt::WA_QuitOnClose, false);
    resize((FirstSize * zoom).boundedTo(screen()->availableSize() - QSize(0, Decoration)));
    colour();
    layOut();
}

void HelpWindow::open(const widgets::HelpPage& help) {
    const QUrl page(QStringLiteral("qrc:/vorandine/help/") + shown(help.page));
    if (!QFile::exists(':' + page.path()))
        throw Error(errors::HelpMissing,
                    "Ce programme n'a pas de page d'aide « " + help.page + " ».");
    setWindowTitle(QStringLiteral("Aide : %1").arg(shown(help.title)));
    if (!isVisible() || source().adjusted(QUrl::RemoveFragment) != page)
        setSource(page);
    if (isMinimized())
        showNormal();
    else
        show();
    raise();
    activateWindow();
}

void HelpWindow::setZoom(double zoom) {
    zoom_ = std::clamp(zoom, SmallestZoom, LargestZoom);
    keepPlace([this] { layOut(); });
}

// The page asks for a picture when it is laid out first; later sizes are given to it.
void HelpWindow::layOut() {
    fittedWidth_ = room();
    QFont font = this->font();
    font.setPixelSize(static_cast<int>(std::lround(QFontInfo(font).pixelSize() * zoom_)));
    document()->setDefaultFont(font);
    document()->setDocumentMargin(Margin * zoom_);
    for (const auto& [name, picture] : pictures_)
        document()->addResource(QTextDocument::ImageResource, name, fitted(picture));
    document()->markContentsDirty(0, document()->characterCount());
}

void HelpWindow::colour() {
    const bool dark = palette().color(QPalette::Base).lightness() < Dark;
    // Not every platform that is dark has a link colour that can be read on it.
    const QColor link = dark ? QColor(0x8a, 0xb4, 0xf8) : palette().color(QPalette::Link);
    document()->setDefaultStyleSheet(
        QStringLiteral("a[href] { color: %1 } th { background-color: %2 }")
            .arg(link.name(), palette().color(QPalette::AlternateBase).name()));
}

int HelpWindow::room() const {
    return viewport()->width() - 2 * static_cast<int>(std::ceil(Margin * zoom_));
}

QImage HelpWindow::fitted(const QImage& picture) const {
    const double shown =
        std::min(picture.width() * zoom_, static_cast<double>(std::max(1, room())));
    const double dots = devicePixelRatioF();
    QImage made = picture.scaledToWidth(static_cast<int>(std::lround(shown * dots)),
                                        Qt::SmoothTransformation);
    made.setDevicePixelRatio(dots);
    return made;
}

void HelpWindow::keepPlace(const std::function<void()>& work) {
    // The beginning stays, margin and all.
    if (verticalScrollBar()->value() == 0) {
        work();
        return;
    }
    QTextCursor top = cursorForPosition(QPoint(0, 0));
    const int position = top.position();
    const int stood = cursorRect(top).top();
    work();
    // The bar reaches as far as the page has been laid out: to its end, once its pages are counted.
    (void)document()->pageCount();
    // A page read anew has lost its cursors.
    top.setPosition(position);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(top).top() - stood);
}

QVariant HelpWindow::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource)
        return QTextBrowser::loadResource(type, name);
    const QImage picture(':' + source().resolved(name).path());
    if (picture.isNull())
        return {};
    pictures_[name] = picture;
    return fitted(picture);
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers held =
        event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const int key = event->key();
    if (held == Qt::NoModifier && key == Qt::Key_Escape)
        close();
    else if (held == Qt::ControlModifier && (key == Qt::Key_Plus || key == Qt::Key_Equal))
        setZoom(zoom_ * ZoomStep);
    else if (held == Qt::ControlModifier && key == Qt::Key_Minus)
        setZoom(zoom_ / ZoomStep);
    else if (held == Qt::ControlModifier && key == Qt::Key_0)
        setZoom(1.0);
    else
        QTextBrowser::keyPressEvent(event);
}

void HelpWindow::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) == 0)
        QTextBrowser::wheelEvent(event);
    else if (const int turned = event->angleDelta().y(); turned != 0)
        setZoom(turned > 0 ? zoom_ * ZoomStep : zoom_ / ZoomStep);
}

void HelpWindow::resizeEvent(QResizeEvent* event) {
    keepPlace([&] {
        QTextBrowser::resizeEvent(event);
        if (room() != fittedWidth_)
            layOut();
    });
}

void HelpWindow::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    // Colours are taken up as the page is read.
    colour();
    if (!source().isEmpty())
        keepPlace([this] { reload(); });
}

} // namespace vorandine::qt
