// SPDX-License-Identifier: MIT
#include "window/InspectorPanel.h"

#include "Blocks/ZelTransformerKit.h"
#include "Blocks/ZelWindow.h"
#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelClassRegistry.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Resources/ZelBundle.h"
#include "Resources/ZelNamedImages.h"
#include "ViewController/ZelView.h"
#include "model/Selection.h"
#include "model/Shape.h"
#include "window/BandedSlice.h"
#include "window/InspectorOwner.h"
#include "window/ShapesApplication.h"
#include "window/SwatchProperty.h"

#include <QDir>
#include <QEvent>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

namespace {
/// What the description calls by a name of the application's.
void registerNames()
{
    ZelClassRegistry::registerClass<SwatchProperty>();
    ZelClassRegistry::registerClass<BandedSlice>();
    ZelTransformerKit::registerValueTransformerWithName("ShapesAreaText", "QString", [](const QVariant &area) {
        if (ZelIsNull(area) || ZelIsControllerMarker(area))
            return area;
        return QVariant(QLocale().toString(area.toDouble(), 'f', 0) + QStringLiteral(" pt²"));
    });
}
} // namespace

InspectorPanel::InspectorPanel(InspectorOwner *owner, Selection *selection, QUndoStack *undoStack, QWidget *window)
    : m_owner(owner)
    , m_selection(selection)
    , m_controller(new ZelObjectController(this))
    , m_documentController(new ZelObjectController(this))
{
    setObjectName(QStringLiteral("inspector"));
    setLayout(new QVBoxLayout);
    layout()->setContentsMargins(0, 0, 0, 0);
    registerNames();
    for (const QString &file : QDir(":/images").entryList({"*Template.png"}))
        ZelNamedImages::setImageForName(ZelNamedImages::templateImage(QIcon(":/images/" + file)), file.chopped(4));
    ZelWindow::attach(window, undoStack);
    m_documentController->setSelectedObjects({m_owner->document()});
    m_owner->setDocumentController(m_documentController);
    m_owner->setSelectionController(m_controller);
    connect(selection, &Selection::changed, this, &InspectorPanel::showSelection);
    showSelection();
}

InspectorPanel::~InspectorPanel()
{
    clear();
    m_owner->setSelectionController(nullptr);
    m_owner->setDocumentController(nullptr);
}

void InspectorPanel::load(const QString &folder)
{
    const QString path = folder.isEmpty() ? QStringLiteral(":/inspector") : QDir(folder).absolutePath();
    ZelBundle::mainBundle().setResourcePaths({path});
    m_url = folder.isEmpty() ? QUrl("qrc:/inspector/Inspector.xml") : QUrl::fromLocalFile(path + "/Inspector.xml");
    build();
}

void InspectorPanel::selectTab(int index)
{
    m_tab = index;
    if (m_inspector && index >= 0)
        m_inspector->setSelectedPaneIndex(std::exchange(m_tab, -1));
}

bool InspectorPanel::commitEditing()
{
    return !m_inspector || m_inspector->commitEditing();
}

void InspectorPanel::focusSearchField()
{
    if (m_inspector)
        m_inspector->focusSearchField();
}

void InspectorPanel::build()
{
    const QByteArray state = m_inspector ? m_inspector->saveState() : QByteArray();
    clear();
    try {
        ZelDeclarativeInspectorGenerator generator;
        generator.setUrl(m_url);
        generator.setOwner(m_owner);
        m_inspector = generator.createTabbedInspector();
        m_inspector->setParent(this);
        m_inspector->restoreState(state);
        setContent(m_inspector->view());
        selectTab(m_tab);
    } catch (const ZelException &exception) {
        showMessage(QString::fromUtf8(exception.what()));
    }
}

void InspectorPanel::clear()
{
    // The view first: while the panel is its parent, the controller does not delete it.
    delete m_content;
    delete m_inspector;
}

void InspectorPanel::setContent(QWidget *content)
{
    m_content = content;
    layout()->addWidget(content);
    content->show();
}

void InspectorPanel::showSelection()
{
    // In the order of the list, which shows the uppermost shape first: calculations count with it.
    const QList<Shape *> &shapes = m_selection->shapes();
    m_controller->setSelectedObjects(QList<QObject *>(shapes.crbegin(), shapes.crend()));
}

void InspectorPanel::showMessage(const QString &message)
{
    clear();
    auto *label = new QLabel(message);
    label->setWordWrap(true);
    label->setMargin(8);
    label->setAlignment(Qt::AlignTop);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    setContent(label);
    ShapesApplication::report(message);
}

void InspectorPanel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange && !m_url.isEmpty())
        build();
    QWidget::changeEvent(event);
}
