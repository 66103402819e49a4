// SPDX-License-Identifier: MIT
#include "InspectorWindow.h"

#include "Inspector/ZelInspectorSliver.h"
#include "Platform/Layout/ZelConstraintLayout.h"

#include <QCheckBox>
#include <QDir>
#include <QLineEdit>

namespace {

const QByteArray g_description = R"(<panes><pane title="All"><inspector title="Everything"><slice>
  <section title="Texts">
    <sliver title="Name"><property type="string" keyPath="people.selection.name"/></sliver>
    <sliver title="With a title"><property type="string" title="below" keyPath="people.selection.name"/></sliver>
  </section>
  <section title="Numbers">
    <sliver title="Stepper"><property type="number" title="X" keyPath="people.selection.height" formatUnit=" pt"/>
      <property type="number" title="Y" keyPath="people.selection.height" formatUnit=" pt"/></sliver>
    <sliver title="Linear"><property type="number" keyPath="people.selection.height" slider="linear" maximum="100"/></sliver>
    <sliver title="Circular"><property type="number" keyPath="people.selection.height" slider="circular" maximum="360"/></sliver>
    <sliver title="May be none"><property type="number" keyPath="people.selection.note" nonNilValueTitle="Set"
        nonNilValueKeyPath="extra" placeholder="none"/></sliver>
  </section>
  <section title="Choices">
    <sliver title="Checks"><property type="boolean" title="Active" keyPath="people.selection.active"/>
      <property type="boolean" title="Strong" keyPath="people.selection.flags" bits="4"/></sliver>
    <sliver title="Role"><property type="enumeration" keyPath="people.selection.role">
      <option-group><option title="Guest" value="0"/><option title="A member of long standing" value="1"/></option-group>
      </property></sliver>
    <sliver title="Do"><property type="action" title="Something with a long title" actionSelector="noteAction"/></sliver>
    <chooser title="Kind" keyPath="people.selection.role"><choice title="Guest" value="0">
      <sliver title="Inside"><property type="string" keyPath="people.selection.name"/></sliver></choice></chooser>
  </section>
</slice></inspector></pane></panes>)";

QPalette darkPalette()
{
    QPalette palette(QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::ButtonText, Qt::white);
    return palette;
}

} // namespace

/// Rows align and nothing is clipped, at every width and in both themes. ZEL_SCREENSHOTS names a folder for pictures.
class tst_Looks : public QObject
{
    Q_OBJECT

    static double baseline(QWidget *widget, const QWidget *in)
    {
        return widget->mapTo(in, QPoint()).y() + ZelConstraintLayout::baselineOffset(widget, widget->height());
    }
    static void checkInside(const QWidget *parent)
    {
        for (QObject *object : parent->children()) {
            auto *child = qobject_cast<QWidget *>(object);
            if (!child || child->isWindow() || !child->isVisible() || !qobject_cast<const ZelView *>(parent))
                continue;
            QVERIFY2(parent->rect().contains(child->geometry()),
                     qPrintable(QStringLiteral("%1 in %2").arg(QDebug::toString(child), QDebug::toString(parent))));
            checkInside(child);
        }
    }

private Q_SLOTS:
    void rowsAlignAndNothingIsClipped_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("dark");
        for (int width : {260, 320, 600}) {
            QTest::addRow("%d light", width) << width << false;
            QTest::addRow("%d dark", width) << width << true;
        }
    }
    void rowsAlignAndNothingIsClipped()
    {
        QFETCH(int, width);
        QFETCH(bool, dark);
        const QPalette former = QApplication::palette();
        QApplication::setPalette(dark ? darkPalette() : former);
        InspectorWindow window(g_description, {width, 620});
        window.people[0]->setHeight(42.5);
        window.select({0});
        const QString folder = qEnvironmentVariable("ZEL_SCREENSHOTS");
        if (!folder.isEmpty()) {
            QDir().mkpath(folder);
            window.grab().save(QStringLiteral("%1/looks-%2-%3-%4.png")
                                   .arg(folder)
                                   .arg(width)
                                   .arg(dark ? QStringLiteral("dark") : QStringLiteral("light"))
                                   .arg(qRound(100 * window.devicePixelRatioF())));
        }
        int aligned = 0;
        for (auto *row : window.inspector->findChildren<ZelInspectorSliver *>()) {
            if (!row->isViewLoaded() || !row->view()->isVisible())
                continue;
            checkInside(row->view());
            if (!row->label() || row->properties().isEmpty())
                continue;
            QWidget *control = row->properties().first()->viewForBaselineAlignment();
            QVERIFY(std::abs(baseline(row->label(), row->view()) - baseline(control, row->view())) <= 1.01);
            QCOMPARE(row->label()->mapTo(&window, QPoint(row->label()->width(), 0)).x(),
                     row->view()->mapTo(&window, QPoint()).x() + 79);
            ++aligned;
        }
        QVERIFY(aligned >= 10);
        for (const auto *field : window.findChildren<QLineEdit *>())
            QVERIFY2(!field->isVisible() || field->width() >= 24, qPrintable(QString::number(field->width())));
        QApplication::setPalette(former);
    }
};

QTEST_MAIN(tst_Looks)
#include "tst_Looks.moc"
