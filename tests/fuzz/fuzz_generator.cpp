// SPDX-License-Identifier: MIT
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Platform/Resources/ZelBundle.h"
#include "Platform/Runtime/ZelAssertions.h"
#include "ViewController/ZelView.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

/// Faulty descriptions are no fault of the library.
class SilentHandler : public ZelAssertionHandler
{
public:
    void handleFailure(const QString &, const QString &, const ZelSourcePlace &) override {}
};

class Owner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int a MEMBER a NOTIFY changed)
    Q_PROPERTY(QVariant b MEMBER b NOTIFY changed)
public:
    int a = 1;
    QVariant b = QStringLiteral("text");
Q_SIGNALS:
    void changed();
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

template<typename Class>
void build(ZelDeclarativeInspectorGenerator &generator, Class *(ZelDeclarativeInspectorGenerator::*create)())
{
    try {
        const std::unique_ptr<Class> root((generator.*create)());
        if (!root)
            return;
        for (const auto *container : root->template findChildren<ZelInspectorContainer *>())
            expect(container->owner() == generator.owner(), "every container has the owner");
        root->view()->sizeHint();
    } catch (const ZelException &exception) {
        expect(!exception.reason().isEmpty(), "an exception says why");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    static int count = 1;
    static char name[] = "fuzz";
    static char *arguments[] = {name, nullptr};
    static QApplication application(count, arguments);
    static SilentHandler handler;
    static const QTemporaryDir folder;
    ZelAssertionHandler::setCurrent(&handler);
    ZelBundle::mainBundle().setResourcePaths({folder.path()});
    writeFiles(folder.path(), QByteArray(reinterpret_cast<const char *>(bytes), qsizetype(size)));

    Owner owner;
    ZelDeclarativeInspectorGenerator generator;
    generator.setOwner(&owner);
    generator.setUrl(QUrl::fromLocalFile(folder.filePath(QStringLiteral("a.xml"))));
    build(generator, &ZelDeclarativeInspectorGenerator::createTabbedInspector);
    build(generator, &ZelDeclarativeInspectorGenerator::createPane);
    build(generator, &ZelDeclarativeInspectorGenerator::createSlice);
    return 0;
}

#include "fuzz_generator.moc"
