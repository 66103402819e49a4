// SPDX-License-Identifier: MIT
#include "Bench.h"
#include "PlainShape.h"
#include "SelectionOwner.h"

#include "Controls/Fields/ZelTextField.h"
#include "Controls/ZelLabel.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "ViewController/ZelView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QThread>
#include <QVBoxLayout>

#include <memory>

namespace {

class Rectangle : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QRectF frame MEMBER m_frame NOTIFY frameChanged)
Q_SIGNALS:
    void frameChanged();

private:
    QRectF m_frame{0, 0, 100, 100};
};

/// Selected objects and an editor of one of their values, shown.
template<typename Editor, typename Object> struct Panel
{
    Panel(const QString &key, int count)
        : objects(size_t(count))
        , editor(&owner)
    {
        QList<QObject *> all;
        for (Object &object : objects)
            all.append(&object);
        owner.controller.setSelectedObjects(all);
        editor.setKeyPath("objects.selection." + key);
        column.addWidget(editor.view());
        window.show();
        QElapsedTimer shown; // a person looks before typing, while the objects are connected
        for (shown.start(); shown.elapsed() < 500;)
            QApplication::processEvents();
    }

    std::vector<Object> objects;
    SelectionOwner owner;
    QWidget window;
    QVBoxLayout column{&window};
    Editor editor;
};

void send(QWidget *widget, QEvent::Type type, int x)
{
    const QPointF place(widget->mapToGlobal(QPoint(x, 2)));
    QMouseEvent event(type, QPointF(x, 2), place, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

static void relativeEntry()
{
    constexpr int count = 100000;
    Panel<ZelInspectorNumberProperty, PlainShape> panel("x", count);
    ZelTextField *field = panel.editor.textField();
    std::vector<PlainShape> others{size_t(count)};
    const auto reset = [](std::vector<PlainShape> &shapes) {
        for (PlainShape &shape : shapes)
            shape.setProperty("x", 1.0);
        QApplication::processEvents();
    };
    const Bench::Work ours([&] { reset(panel.objects); },
                           [&] {
                               field->setText(QStringLiteral("x*2+i"));
                               field->commitEditing();
                               QApplication::processEvents();
                           });
    const Bench::Work byHand([&] { reset(others); },
                             [&] {
                                 int i = 0;
                                 for (PlainShape &shape : others)
                                     shape.setProperty("x", shape.property("x").toDouble() * 2 + i++);
                             });
    ours.before();
    ours.run();
    Bench::expect(panel.objects.back().property("x").toDouble() == count + 1, "not every object was changed");
    Bench::compare("N x*2+i for each of 100000 doubles", 0.5, ours, byHand);
    bool changed = false;
    for (PlainShape &shape : others)
        QObject::connect(&shape, &PlainShape::xChanged, &panel.window, [&changed] { changed = true; });
    Bench::compare("N x*2+i for each of 100000 doubles, a listener to each by hand", 0, ours, byHand);
}
ZEL_BENCHMARK(relativeEntry)

static void scrubStep()
{
    constexpr int count = 10000;
    Panel<ZelInspectorBoundsProperty, Rectangle> panel("frame", count);
    std::vector<Rectangle> others{size_t(count)};
    QWidget *title = panel.editor.originXProperty()->label();
    int x = 40;
    double step = 0;
    send(title, QEvent::MouseButtonPress, 0);
    send(title, QEvent::MouseMove, x);
    Bench::expect(panel.objects.back().property("frame").toRectF().x() == 10, "the number is not dragged");
    const auto waitForFrame = [] {
        QThread::msleep(17);
        QApplication::processEvents();
        QThread::msleep(17);
        QApplication::processEvents();
    };
    const Bench::Work ours(waitForFrame, [&] {
        send(title, QEvent::MouseMove, x = x == 40 ? 80 : 40);
        QApplication::processEvents();
    });
    const Bench::Work byHand(waitForFrame, [&] {
        step = step == 10 ? 20 : 10;
        for (Rectangle &rectangle : others) {
            QRectF frame = rectangle.property("frame").toRectF();
            frame.moveLeft(step);
            rectangle.setProperty("frame", frame);
        }
    });
    Bench::compare("N a drag step over 10000 rectangles", 0.5, ours, byHand);
    bool changed = false;
    for (Rectangle &rectangle : others)
        QObject::connect(&rectangle, &Rectangle::frameChanged, &panel.window, [&changed] { changed = true; });
    Bench::compare("N a drag step over 10000 rectangles, a listener to each by hand", 0, ours, byHand);
    Bench::absolute("N a drag step over 10000 rectangles, against 16 ms", 16, ours);
    send(title, QEvent::MouseButtonRelease, x);
}
ZEL_BENCHMARK(scrubStep)

#include "numbers.moc"
