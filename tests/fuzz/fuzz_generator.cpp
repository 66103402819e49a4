// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Selection/ZelArrayController.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Resources/ZelBundle.h"
#include "Support/ModelValue.h"
#include "ViewController/ZelView.h"
#include <QAction>
#include <QApplication>
#include <QDate>
#include <QKeyEvent>
#include <QLoggingCategory>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {
void expect(bool condition, const char *text)
{
    if (condition)
        return;
    std::fprintf(stderr, "not true: %s\n", text);
    std::abort();
}

/// Faulty descriptions are no fault of the library: it goes on where it can, or ends what it does with an exception.
class Handler : public ZelAssertionHandler
{
public:
    bool throws = false;
    void handleFailure(const QString &location, const QString &message, const ZelSourcePlace &place) override
    {
        if (throws)
            ZelAssertionHandler::handleFailure(location, message, place);
    }
};

class Reporter : public ZelExceptionReporter
{
    void reportException(const QString &message, const ZelSourcePlace &) override
    {
        expect(!message.isEmpty(), "a report says why");
    }
};

class Model : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int fixed MEMBER fixed CONSTANT)
public:
    MODEL_VALUE(bool, flag, true)
    MODEL_VALUE(double, number, 2)
    MODEL_VALUE(QString, text, QStringLiteral("text"))
    MODEL_VALUE(QColor, color, Qt::red)
    MODEL_VALUE(QDate, date, 2000, 1, 1)
    MODEL_VALUE(QFont, font, )
    MODEL_VALUE(QSizeF, size, 1, 2)
    MODEL_VALUE(QRectF, frame, 1, 2, 3, 4)
    MODEL_VALUE(QStringList, list, QStringLiteral("one"), QStringLiteral("two"))
    int fixed = 7;
    Q_SIGNAL void changed();
};

class Owner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *c READ controller CONSTANT)
    Q_PROPERTY(QList<QAction *> menu READ menu CONSTANT)
public:
    Owner()
    {
        m_second.number = 3;
        m_controller.setSelectedObjects({&m_first, &m_second});
    }
    MODEL_VALUE(int, a, 1)
    MODEL_VALUE(QVariant, b, QStringLiteral("text"))
    MODEL_VALUE(QVariantList, values, 1, 2)
    MODEL_VALUE(QStringList, names, QStringLiteral("one"), QStringLiteral("two"))
    QObject *controller() { return &m_controller; }
    QList<QAction *> menu() { return {&m_action}; }
    Q_INVOKABLE void act() { m_controller.setSelectedObjects({&m_first}); }
    Q_SIGNAL void changed();

private:
    Model m_first;
    Model m_second;
    ZelArrayController m_controller;
    QAction m_action{QStringLiteral("Act")};
};

/// Writes the parts of the input, which are divided by a percent sign, as the files a.xml, b.xml and so on.
void writeFiles(const QString &folder, const QByteArray &data)
{
    const QList<QByteArray> parts = data.split('%');
    for (char i = 0; i < 4; ++i) {
        QFile file(folder + u'/' + QChar(u'a' + i) + u".xml");
        expect(file.open(QIODevice::WriteOnly), "a file can be written");
        file.write(parts.value(i));
    }
}

void press(const QPointer<QWidget> &widget, int key, const QString &text = {})
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, {}, text);
        if (widget)
            QApplication::sendEvent(widget, &event);
    }
}

/// What a user does with a control that he does not know.
void use(const QPointer<QWidget> &widget)
{
    const QPoint at = widget->rect().center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, widget ? widget->mapToGlobal(at) : at, Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
        if (widget)
            QApplication::sendEvent(widget, &event);
    }
    for (const int key : {Qt::Key_Down, Qt::Key_Return})
        press(QApplication::activePopupWidget(), key);
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    press(widget, Qt::Key_7, QStringLiteral("7"));
    press(widget, Qt::Key_Return);
    press(widget, Qt::Key_Up);
}

/// Does the work, which may raise an exception of the library.
template<typename Work> void attempt(Work &&work)
{
    try {
        work();
    } catch (const ZelException &exception) {
        expect(!exception.reason().isEmpty(), "an exception says why");
    }
}

void edit(QWidget &window)
{
    QList<QPointer<QWidget>> controls;
    for (QWidget *widget : window.findChildren<QWidget *>())
        if (widget->focusPolicy() != Qt::NoFocus && widget->isVisible() && controls.size() < 40)
            controls.append(widget);
    for (const QPointer<QWidget> &control : controls)
        if (control)
            attempt([&] { use(control); });
}

void build(QObject *owner, const std::function<ZelViewController *()> &create)
{
    std::unique_ptr<ZelViewController> root;
    QWidget window;
    attempt([&] {
        root.reset(create());
        if (!root)
            return;
        for (const auto *container : root->findChildren<ZelInspectorContainer *>())
            expect(container->owner() == owner, "every container has the owner");
        window.resize(300, 600);
        (new QVBoxLayout(&window))->addWidget(root->view());
        window.show();
        QCoreApplication::processEvents();
    });
    if (!root)
        return;
    edit(window);
    for (quint64 i = 1; root->inherits("ZelTabbedInspector") && i < 4; ++i) {
        root->setProperty("selectedPaneIndex", i);
        edit(window);
    }
    QCoreApplication::processEvents();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    static int count = 1;
    static char name[] = "fuzz";
    static char *arguments[] = {name, nullptr};
    // Never deleted: Qt's own statics, of which it has pointers, end before ours.
    [[maybe_unused]] static const auto *application = new QApplication(count, arguments);
    [[maybe_unused]] static const bool quiet = (QLoggingCategory::setFilterRules(QStringLiteral("*=false")), true);
    static Handler handler;
    static Reporter reporter;
    static const QTemporaryDir folder;
    ZelAssertionHandler::setCurrent(&handler);
    ZelExceptionReporter::setCurrent(&reporter);
    ZelBundle::mainBundle().setResourcePaths({folder.path()});
    writeFiles(folder.path(), QByteArray(reinterpret_cast<const char *>(bytes), qsizetype(size)));
    for (const bool throws : {false, true}) {
        handler.throws = throws;
        Owner owner;
        ZelDeclarativeInspectorGenerator generator;
        generator.setOwner(&owner);
        generator.setUrl(QUrl::fromLocalFile(folder.filePath(QStringLiteral("a.xml"))));
        build(&owner, [&] { return generator.createTabbedInspector(); });
        build(&owner, [&] { return generator.createPane(); });
        build(&owner, [&] { return generator.createSlice(); });
    }
    return 0;
}

#include "fuzz_generator.moc"
