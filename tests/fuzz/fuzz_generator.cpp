// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Selection/ZelArrayController.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Resources/ZelBundle.h"
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
public:
    void reportException(const QString &message, const ZelSourcePlace &) override
    {
        if (message.isEmpty())
            std::abort();
    }
};

class Model : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool flag MEMBER flag NOTIFY changed)
    Q_PROPERTY(double number MEMBER number NOTIFY changed)
    Q_PROPERTY(QString text MEMBER text NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER color NOTIFY changed)
    Q_PROPERTY(QDate date MEMBER date NOTIFY changed)
    Q_PROPERTY(QFont font MEMBER font NOTIFY changed)
    Q_PROPERTY(QSizeF size MEMBER size NOTIFY changed)
    Q_PROPERTY(QRectF frame MEMBER frame NOTIFY changed)
    Q_PROPERTY(QStringList list MEMBER list NOTIFY changed)
    Q_PROPERTY(int fixed READ fixed CONSTANT)
public:
    bool flag = true;
    double number = 2;
    QString text = QStringLiteral("text");
    QColor color = Qt::red;
    QDate date{2000, 1, 1};
    QFont font;
    QSizeF size{1, 2};
    QRectF frame{1, 2, 3, 4};
    QStringList list{QStringLiteral("one"), QStringLiteral("two")};
    int fixed() const { return 7; }
Q_SIGNALS:
    void changed();
};

class Owner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int a MEMBER a NOTIFY changed)
    Q_PROPERTY(QVariant b MEMBER b NOTIFY changed)
    Q_PROPERTY(QObject *c READ controller CONSTANT)
    Q_PROPERTY(QVariantList values MEMBER values NOTIFY changed)
    Q_PROPERTY(QStringList names MEMBER names NOTIFY changed)
    Q_PROPERTY(QList<QAction *> menu READ menu CONSTANT)
public:
    Owner()
    {
        m_second.number = 3;
        m_controller.setSelectedObjects({&m_first, &m_second});
    }
    int a = 1;
    QVariant b = QStringLiteral("text");
    QVariantList values{1, 2};
    QStringList names{QStringLiteral("one"), QStringLiteral("two")};
    QObject *controller() { return &m_controller; }
    QList<QAction *> menu() { return {&m_action}; }
    Q_INVOKABLE void act() { m_controller.setSelectedObjects({&m_first}); }
Q_SIGNALS:
    void changed();

private:
    Model m_first;
    Model m_second;
    ZelArrayController m_controller;
    QAction m_action{QStringLiteral("Act")};
};

void expect(bool condition, const char *text)
{
    if (condition)
        return;
    std::fprintf(stderr, "not true: %s\n", text);
    std::abort();
}

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

void click(QWidget *widget)
{
    const QPoint at = widget->rect().center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
        QApplication::sendEvent(widget, &event);
    }
}

void press(QWidget *widget, int key, const QString &text = {})
{
    const QPointer<QWidget> alive(widget);
    QKeyEvent down(QEvent::KeyPress, key, {}, text);
    QApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, {}, text);
    if (alive)
        QApplication::sendEvent(widget, &up);
}

/// What a user does with a control that he does not know.
void use(const QPointer<QWidget> &widget)
{
    click(widget);
    if (QWidget *popup = QApplication::activePopupWidget()) {
        press(popup, Qt::Key_Down);
        if (QWidget *still = QApplication::activePopupWidget())
            press(still, Qt::Key_Return);
    }
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    if (widget)
        press(widget, Qt::Key_7, QStringLiteral("7"));
    if (widget)
        press(widget, Qt::Key_Return);
    if (widget)
        press(widget, Qt::Key_Up);
}

void edit(QWidget &window)
{
    QList<QPointer<QWidget>> controls;
    for (QWidget *widget : window.findChildren<QWidget *>())
        if (widget->focusPolicy() != Qt::NoFocus && widget->isVisible() && controls.size() < 40)
            controls.append(widget);
    for (const QPointer<QWidget> &control : controls) {
        if (!control)
            continue;
        try {
            use(control);
        } catch (const ZelException &exception) {
            expect(!exception.reason().isEmpty(), "an exception says why");
        }
    }
}

template<typename Class>
void build(ZelDeclarativeInspectorGenerator &generator, Class *(ZelDeclarativeInspectorGenerator::*create)())
{
    std::unique_ptr<Class> root;
    QWidget window;
    try {
        root.reset((generator.*create)());
        if (!root)
            return;
        for (const auto *container : root->template findChildren<ZelInspectorContainer *>())
            expect(container->owner() == generator.owner(), "every container has the owner");
        window.resize(300, 600);
        (new QVBoxLayout(&window))->addWidget(root->view());
        window.show();
        QCoreApplication::processEvents();
    } catch (const ZelException &exception) {
        expect(!exception.reason().isEmpty(), "an exception says why");
    }
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
    static const auto *application = new QApplication(count, arguments);
    Q_UNUSED(application)
    static const bool quiet = (QLoggingCategory::setFilterRules(QStringLiteral("*=false")), true);
    Q_UNUSED(quiet)
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
        build(generator, &ZelDeclarativeInspectorGenerator::createTabbedInspector);
        build(generator, &ZelDeclarativeInspectorGenerator::createPane);
        build(generator, &ZelDeclarativeInspectorGenerator::createSlice);
    }
    return 0;
}

#include "fuzz_generator.moc"
