// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/qt/surface_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

#include "platform/backend.h"
#include "platform/events.h"
#include "platform/qt/game_keys.h"
#include "platform/qt/picture_cache.h"
#include "platform/qt/text_drawing.h"

namespace {

QRect toRect(const PixelBox& box) {
    return QRect(QPoint(box.left, box.top), QPoint(box.right - 1, box.bottom - 1));
}

/// Draws an image into a box that may be a little smaller, which cuts it off, or larger, where its
/// outermost pixels stand again.
void fill(QPainter& painter, const QRect& box, const QImage& image) {
    const QSize seen = image.size().boundedTo(box.size());
    const QSize more = box.size() - seen;
    const QRect beside(box.left() + seen.width(), box.top(), more.width(), seen.height());
    const QRect below(box.left(), box.top() + seen.height(), seen.width(), more.height());
    const QRect corner(beside.left(), below.top(), more.width(), more.height());
    const QPoint last(image.width() - 1, image.height() - 1);
    painter.drawImage(box.topLeft(), image, QRect(QPoint(), seen));
    if (!beside.isEmpty()) painter.drawImage(beside, image, QRect(last.x(), 0, 1, seen.height()));
    if (!below.isEmpty()) painter.drawImage(below, image, QRect(0, last.y(), seen.width(), 1));
    if (!corner.isEmpty()) painter.drawImage(corner, image, QRect(last, QSize(1, 1)));
}

int buttonNumber(Qt::MouseButton button) {
    return button == Qt::LeftButton ? 1 : button == Qt::RightButton ? 2 : 4;
}

}  // namespace

SurfaceView::SurfaceView(Runtime& runtime, Form& form, PictureCache& pictures, QWidget* parent)
    : QWidget(parent), runtime_(runtime), form_(form), pictures_(pictures) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

QRect SurfaceView::toWidget(const PixelBox& box) const {
    const auto down = [this](int pixel) { return static_cast<int>(std::floor(pixel / ratio_)); };
    const auto up = [this](int pixel) { return static_cast<int>(std::ceil(pixel / ratio_)); };
    return QRect(QPoint(down(box.left), down(box.top)),
                 QPoint(up(box.right) - 1, up(box.bottom) - 1));
}

void SurfaceView::fitCanvas() {
    const double ratio = devicePixelRatio();
    const QSize size(std::max(1, static_cast<int>(std::lround(width() * ratio))),
                     std::max(1, static_cast<int>(std::lround(height() * ratio))));
    if (size_ == size && ratio_ == ratio) return;
    awaitFrame();
    // A window whose edge is dragged would fill the memory with sizes that never come again.
    pictures_.clear();
    canvas_ = {};
    size_ = size;
    ratio_ = ratio;
    form_.grid = {size.width() / static_cast<double>(unitsAcross),
                  size.height() / static_cast<double>(unitsDown), ratio};
    redraw();
    runtime_.queue.push_back({form_.source, Verb::Resize});
}

/// While an edge is dragged sizes may come faster than anybody sees them: each lasts a frame, and
/// those that come meanwhile are one to the window system.
void SurfaceView::awaitFrame() {
    if (form_.surface.tidied().empty()) return;
    const double left = redrawn_ + runtime_.backend.frameSeconds - runtime_.backend.clock();
    if (left > 0) std::this_thread::sleep_for(std::chrono::duration<double>(left));
    redrawn_ = runtime_.backend.clock();
}

/// A dozen cards drawn one after the other would take longer than a frame. What the opening screen
/// shows is drawn as it comes: to ask others for help would cost the start more than it saves.
void SurfaceView::preparePictures() const {
    if (form_.surface.tidied().empty()) return;
    std::vector<PictureCache::Wanted> wanted;
    for (const Painted& entry : form_.surface.tidied()) {
        const auto [width, height] = drawnSize(entry.box, form_.grid);
        wanted.push_back({entry.picture, QSize(width, height)});
    }
    for (const Shown& shown : drawnNow())
        wanted.push_back({shown.picture, toRect(shown.box).size()});
    std::erase_if(wanted, [](const PictureCache::Wanted& one) {
        return one.picture == picture::none || one.size.isEmpty();
    });
    pictures_.prepare(wanted);
}

void SurfaceView::redraw() {
    preparePictures();
    for (const Painted& entry : form_.surface.tidied()) draw(entry);
    changed_ = rect();
}

void SurfaceView::painted(const Painted& entry) {
    if (!isFitted()) return;
    draw(entry);
    changed_ += toWidget(toPixels(entry.box, form_.grid));
}

void SurfaceView::cleared() {
    if (!isFitted()) return;
    if (!canvas_.isNull()) canvas_.fill(toQt(form_.surface.backColor));
    changed_ = rect();
}

/// A surface on which nothing has been painted needs none: a colour is quicker shown.
void SurfaceView::makeCanvas() {
    if (!canvas_.isNull()) return;
    canvas_ = QImage(size_, QImage::Format_RGB32);
    canvas_.fill(toQt(form_.surface.backColor));
}

void SurfaceView::draw(const Painted& entry) {
    makeCanvas();
    QPainter painter(&canvas_);
    if (entry.picture == picture::none) {
        painter.fillRect(toRect(toPixels(entry.box, form_.grid)), toQt(entry.colour));
        return;
    }
    const QRect box = toRect(toPixels(entry.box, form_.grid));
    if (box.isEmpty()) return;
    const auto [width, height] = drawnSize(entry.box, form_.grid);
    fill(painter, box, pictures_.image(entry.picture, width, height));
}

std::vector<SurfaceView::Shown> SurfaceView::drawnNow() const {
    std::vector<Shown> drawn;
    for (const Control* control : drawnControls(form_)) {
        Shown shown{control, pixelsOf(*control, form_.grid), picture::none, {}, 0};
        if (control->kind == Kind::image) {
            shown.picture = static_cast<const Image*>(control)->picture;
        } else {
            const auto* label = static_cast<const Label*>(control);
            shown.caption = label->Caption;
            shown.foreColor = label->ForeColor;
        }
        // Frames and lamps are stacked at one place, and only the one in front is to be seen.
        std::erase_if(drawn, [&](const Shown& below) { return below.box == shown.box; });
        drawn.push_back(std::move(shown));
    }
    return drawn;
}

void SurfaceView::findChangedControls() {
    std::vector<Shown> now = drawnNow();
    const auto missing = [](const std::vector<Shown>& list, const Shown& shown) {
        return std::find(list.begin(), list.end(), shown) == list.end();
    };
    for (const Shown& old : shown_)
        if (missing(now, old)) changed_ += toWidget(old.box);
    for (const Shown& shown : now)
        if (missing(shown_, shown)) changed_ += toWidget(shown.box);
    // Two that have changed places in the stack.
    if (now.size() == shown_.size())
        for (std::size_t i = 0; i < now.size(); ++i)
            if (now[i].control != shown_[i].control) changed_ += toWidget(now[i].box);
    shown_ = std::move(now);
    const Ring ring = ringOf(form_);
    if (ring == ring_) return;
    changed_ += toWidget(ring_.edge);
    changed_ += toWidget(ring.edge);
    ring_ = ring;
}

std::vector<Told> SurfaceView::told() const {
    return form_.teller ? form_.teller(runtime_) : std::vector<Told>{};
}

QString SurfaceView::name() const {
    return QString::fromStdString(form_.name);
}

PixelBox SurfaceView::ringed() const {
    return toPixels(form_.ring, form_.grid);
}

void SurfaceView::present() {
    if (!isFitted() || !isVisible()) return;
    findChangedControls();
    if (changed_.isEmpty() && !untold_) return;
    // Where nobody has asked for what is seen, nobody is told of what changes.
    if (tell_) tell_();
    untold_ = false;
    const QRegion region = changed_;
    changed_ = {};
    repaint(region);
}

void SurfaceView::drawControl(QPainter& painter, const Shown& shown) const {
    const QRect box = toRect(shown.box);
    if (box.isEmpty()) return;
    if (shown.control->kind == Kind::image) {
        painter.drawImage(box, pictures_.image(shown.picture, box.width(), box.height()));
    } else {
        drawLabel(painter, *static_cast<const Label*>(shown.control), box, form_.grid.fixed);
    }
}

void SurfaceView::paintEvent(QPaintEvent* event) {
    if (!isFitted()) return;
    QPainter painter(this);
    // From here on coordinates are the screen's own pixels.
    painter.scale(1 / ratio_, 1 / ratio_);
    if (canvas_.isNull())
        painter.fillRect(QRect({0, 0}, size_), toQt(form_.surface.backColor));
    else
        painter.drawImage(0, 0, canvas_);
    for (const Shown& shown : shown_)
        if (event->region().intersects(toWidget(shown.box))) drawControl(painter, shown);
    drawRing(painter, ring_);
    // Asked for by the window system, as after a change of size, it need not be shown once more.
    untold_ = untold_ || changed_.intersects(event->region());
    changed_ -= event->region();
}

void SurfaceView::resizeEvent(QResizeEvent*) {
    fitCanvas();
    findChangedControls();
}

void SurfaceView::pressPixel(int x, int y, int button) {
    pressAt(runtime_, form_, pressOn(x, form_.grid.x), pressOn(y, form_.grid.y), button);
}

void SurfaceView::press(const PixelBox& box) {
    pressPixel((box.left + box.right) / 2, (box.top + box.bottom) / 2, 1);
}

void SurfaceView::mousePressEvent(QMouseEvent* event) {
    const QPointF place = event->position() * ratio_;
    pressPixel(qFloor(place.x()), qFloor(place.y()), buttonNumber(event->button()));
}

/// The second press of a double click is a press like any other.
void SurfaceView::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

/// A movement that the window system made up, as when a window comes under the mouse, is none.
void SurfaceView::mouseMoveEvent(QMouseEvent* event) {
    if (ring_ == Ring{} || event->globalPosition().toPoint() == mouseAtKey_) return;
    runtime_.queue.push_back({form_.source, Verb::MouseMove});
}

bool SurfaceView::queueKey(const QKeyEvent& event) {
    if (!answers(runtime_, form_.source, Verb::KeyDown)) return false;
    const auto key = gameKey(event);
    if (!key) return false;
    mouseAtKey_ = QCursor::pos();
    runtime_.queue.push_back({form_.source, Verb::KeyDown, static_cast<int>(*key)});
    return true;
}

void SurfaceView::keyPressEvent(QKeyEvent* event) {
    event->setAccepted(queueKey(*event));
}

/// Space stays what it is to a button. A key held down is no second press there either.
bool SurfaceView::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (isPress(key) && key.isAutoRepeat()) return true;
    return key.key() != Qt::Key_Space && queueKey(key);
}

bool SurfaceView::event(QEvent* event) {
    const bool done = QWidget::event(event);
    const auto type = event->type();
    if (type == QEvent::ScreenChangeInternal || type == QEvent::Show) fitCanvas();
    return done;
}
