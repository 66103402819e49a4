// SPDX-License-Identifier: MIT
#include "PreviewStandIns.h"

#include "Blocks/ZelTransformerKit.h"
#include "Controls/ZelLabel.h"
#include "Core/KeyValue/ZelClassRegistry.h"
#include "Core/Values/ZelTransformerFactory.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelInspectorSlice.h"
#include "Resources/ZelBundle.h"
#include "Resources/ZelNamedImages.h"
#include "ViewController/ZelView.h"

#include <QIcon>
#include <QPainter>

namespace {

/// A frame with the first letter of the name.
QIcon imageFor(const QString &name)
{
    constexpr int size = 16;
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(Qt::gray);
    painter.drawRect(0, 0, size - 1, size - 1);
    painter.drawText(picture.rect(), Qt::AlignCenter, name.left(1));
    return QIcon(picture);
}

} // namespace

void StandInProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_label = new ZelLabel(container);
    for (const char *format : {"H:|-2-[label]-2-|", "V:|-2-[label]-2-|"})
        container->addConstraintsWithVisualFormat(QString::fromLatin1(format), {{QStringLiteral("label"), m_label}});
}

void StandInProperty::viewDidInstall()
{
    ZelInspectorCustomProperty::viewDidInstall();
    if (!keyPath().isEmpty())
        observeForUpdate(keyPath());
    updateView();
}

void StandInProperty::updateView()
{
    const QString value = keyPath().isEmpty() ? QString() : reflectedValue().toString();
    m_label->setText(value.isEmpty() ? u'<' + m_name + u'>' : QStringLiteral("<%1> %2").arg(m_name, value));
}

QWidget *StandInProperty::viewForBaselineAlignment()
{
    return view() ? m_label : nullptr;
}

QStringList PreviewStandIns::provide(const PreviewNeeds &needs)
{
    QStringList missing;
    for (const QString &name : needs.editorClasses) {
        if (ZelClassRegistry::hasClass(name))
            continue;
        ZelClassRegistry::registerClass(name, &StandInProperty::staticMetaObject,
                                        [name](QObject *owner) { return new StandInProperty(name, owner); });
        missing.append(QStringLiteral("class %1").arg(name));
    }
    for (const QString &name : needs.sliceClasses) {
        if (ZelClassRegistry::hasClass(name))
            continue;
        ZelClassRegistry::registerClass(name, &ZelInspectorSlice::staticMetaObject,
                                        [](QObject *owner) { return new ZelInspectorSlice(owner); });
        missing.append(QStringLiteral("class %1").arg(name));
    }
    for (const QString &name : needs.propertyTypes)
        missing.append(QStringLiteral("type %1").arg(name));
    const auto same = [](const QVariant &value) { return value; };
    for (const QString &name : needs.transformers) {
        const QString withoutArgument = name.section(u'(', 0, 0).trimmed();
        if (ZelAbstractValueTransformer::valueTransformerNames().contains(withoutArgument) ||
            ZelTransformerFactory::names().contains(withoutArgument))
            continue;
        if (name != withoutArgument)
            ZelTransformerFactory::registerFactory(withoutArgument, name, [same](const QString &, QString *) {
                return ZelValueTransformer::transformerWithBlock(same);
            });
        else
            ZelTransformerKit::registerValueTransformerWithName(name, QStringLiteral("QVariant"), same, same);
        missing.append(QStringLiteral("transformer %1").arg(withoutArgument));
    }
    for (const QString &name : needs.images) {
        const bool isThere = !ZelBundle::mainBundle().urlForImageResource(name).isEmpty();
        if (isThere && m_images.remove(name))
            ZelNamedImages::setImageForName({}, name);
        if (isThere || !ZelNamedImages::imageNamed(name).isNull())
            continue;
        ZelNamedImages::setImageForName(imageFor(name), name);
        m_images.insert(name);
        missing.append(QStringLiteral("image %1").arg(name));
    }
    missing.sort();
    return missing;
}

ZelInspectorProperty *PreviewStandIns::declarativeInspectorGeneratorCreatePropertyForConfiguration(
    ZelDeclarativeInspectorGenerator *generator, const ZelInspectorConfiguration &configuration)
{
    if (configuration.hasValueNamed(u"file"))
        return nullptr; // a file that does not exist
    auto *editor = new StandInProperty(configuration.stringValueNamed(u"type"), generator->owner());
    editor->configure(configuration);
    return editor;
}
