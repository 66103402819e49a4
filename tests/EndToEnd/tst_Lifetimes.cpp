// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "FigureSheet.h"

namespace {
using TextEditor = ZelInspectorAttributedStringProperty;

QByteArray description()
{
    return R"(<panes><pane title="One"><inspector title="Person" visibleKeyPath="unlocked"><slice><section title="Basics">
    <sliver title="Name"><property type="string" keyPath="people.selection.name" enabledKeyPath="unlocked"/></sliver>
    <sliver title="Height"><property type="number" keyPath="people.selection.height" slider="circular"/></sliver>
    <sliver title="Bits"><property type="boolean" title="Bit" keyPath="people.selection.flags" bits="2"/></sliver>
    <chooser title="Role" keyPath="people.selection.role">
      <choice title="Guest" value="0"><sliver title="Note"><property type="string" keyPath="people.selection.note"/></sliver></choice>
      <choice title="Member" value="1"/>
    </chooser>)" +
           Sheet::allRows() + "</section></slice></inspector></pane></panes>";
}

void typeSize(const Sheet &window)
{
    auto *font = window.editor<ZelInspectorFontProperty>("font");
    Sheet::click(font->button());
    Sheet::replaceText(font->popoverView()->fontSizeTextField(), "44");
}

void clickSegment(const Sheet &window, int segment)
{
    auto *bar = window.editor<TextEditor>("text")->segmentedControl();
    Sheet::click(bar, bar->segmentRect(segment).center());
}

/// What the user is in the middle of.
const std::pair<const char *, void (*)(const Sheet &)> g_makers[] = {
    {"nothing", [](const Sheet &) {}},
    {"a number", [](const Sheet &window) { window.begin("height", "12"); }},
    {"a date", [](const Sheet &window) { window.begin("day", "17"); }},
    {"a cell", [](const Sheet &window) { window.begin("tags", "cell"); }},
    {"a menu", [](const Sheet &window) { QVERIFY(Sheet::openMenu(window.findChild<ZelPopUpButton *>())); }},
    {"a color panel",
     [](const Sheet &window) {
         window.begin("stroke", "Other...");
         QVERIFY(Sheet::colorPanel());
     }},
    {"a font's size", typeSize},
    {"a font's menu",
     [](const Sheet &window) {
         typeSize(window);
         QVERIFY(
             Sheet::openMenu(window.editor<ZelInspectorFontProperty>("font")->popoverView()->fontFamilyPopUpButton()));
     }},
    {"a text", [](const Sheet &window) { window.begin("text", "typed"); }},
    {"a text's color panel",
     [](const Sheet &window) {
         window.begin("text", "typed");
         clickSegment(window, TextEditor::TextColorSegment);
         QVERIFY(Sheet::colorPanel());
     }},
    {"a text's paragraphs",
     [](const Sheet &window) {
         clickSegment(window, TextEditor::MoreSegment);
         QVERIFY(QApplication::activePopupWidget());
         Sheet::press(Qt::Key_A, Qt::ControlModifier);
         Sheet::type("9");
     }},
};

/// Window, inspector, its view, models, owner, the text's view, a popover's content; nothing is selected, or the window
/// is hidden.
const char *const g_ways[] = {"w",    "i",    "v",    "m",   "o",    "h",   "mow", "omw", "imow",
                              "vmow", "ocww", "viow", "ovw", "omiw", "mcw", "ti",  "pi"};

void end(std::unique_ptr<Sheet> &window, QChar what)
{
    if (!window || (what == u'c' && !window->owner) || (QString("vtp").contains(what) && !window->inspector))
        return;
    if (what == u'w')
        window.reset();
    else if (what == u'i')
        window->inspector.reset();
    else if (what == u'v')
        delete window->inspector->view();
    else if (what == u'm')
        window->figures.clear();
    else if (what == u'o')
        window->owner.reset();
    else if (what == u'h')
        window->hide();
    else if (what == u'c')
        window->owner->controller.setSelectedObjects({});
    else if (what == u't')
        delete window->editor<TextEditor>("text")->textView();
    else if (const auto *popover = window->editor<TextEditor>("text")->popover())
        delete popover->contentWidget();
}

/// Uses what may still be open, and closes it.
void goOn()
{
    if (ZelColorPanel::sharedColorPanel()->isVisible())
        qobject_cast<QColorDialog *>(ZelColorPanel::sharedColorPanel()->window())->setCurrentColor(QColor(9, 9, 9));
    Sheet::closePopups();
    ZelColorPanel::sharedColorPanel()->close();
    Sheet::settle();
}
} // namespace

/// Everything that takes part dies, in any order, also in the middle of something.
class tst_Lifetimes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)}); }

    void everyMakerInEveryWay()
    {
        for (const auto &[name, make] : g_makers) {
            for (const QString way : g_ways) {
                const TableRow inRow(QString(name) + u' ' + way);
                auto window = std::make_unique<Sheet>(description(), QSize(340, 1100));
                window->select({0, 1});
                make(*window);
                const std::unique_ptr<Figure> third = std::move(window->figures[2]);
                const QPointer<Figure> first = window->figures[0].get();
                for (QChar what : way) {
                    end(window, what);
                    Sheet::settle();
                }
                const auto values = [&] {
                    return first ? QVariantList{first->stroke, first->font, first->text.toVariant()} : QVariantList();
                };
                const QVariantList before = values();
                goOn();
                QVERIFY(way == u'h' || values() == before);
                QVERIFY(!QApplication::activePopupWidget() && !ZelColorPanel::sharedColorPanel()->delegate());
            }
        }
    }

    void duringADelivery()
    {
        for (const QString way : g_ways) {
            const TableRow inRow(way);
            auto window = std::make_unique<Sheet>(description(), QSize(340, 1100));
            window->select({0, 1});
            // The person outlives its turn: it is its signal that is being delivered.
            const std::unique_ptr<Figure> person = std::move(window->figures[0]);
            connect(person.get(), &Person::heightChanged, person.get(), [&] {
                for (QChar what : way)
                    end(window, what);
            });
            person->setHeight(5);
            QCoreApplication::processEvents();
            window.reset();
            for (const char *key : {"name", "height", "flags", "role", "note", "fill", "day", "font", "tags", "text"})
                QVERIFY2(!ZelIsObserved(person.get(), key), key);
        }
    }

    void aChoiceMayEndTheWindow()
    {
        auto window = std::make_unique<Sheet>(description(), QSize(340, 1100));
        window->select({0});
        connect(window->figures[0].get(), &Figure::changed, this, [&] {
            if (window)
                window.release()->deleteLater();
        });
        window->begin("fill", "Blue");
        QTRY_VERIFY(!window);
        Sheet::settle();
    }
};
QTEST_MAIN(tst_Lifetimes)
#include "tst_Lifetimes.moc"
