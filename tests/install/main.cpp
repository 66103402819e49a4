// SPDX-License-Identifier: MIT
// Shows an inspector of an object, and succeeds if the object's text stands in an editor.
#include <Inspector/ZelDeclarativeInspectorGenerator.h>
#include <Inspector/ZelTabbedInspector.h>
#include <ViewController/ZelView.h>

#include <QApplication>
#include <QMainWindow>

#include <algorithm>
#include <memory>

class Note : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text MEMBER m_text NOTIFY textChanged)

Q_SIGNALS:
    void textChanged();

private:
    QString m_text = QStringLiteral("installed");
};

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Note note;
    QMainWindow window;

    ZelDeclarativeInspectorGenerator generator;
    generator.setUrl(QUrl(QStringLiteral("qrc:/Note.xml")));
    generator.setOwner(&note);
    const std::unique_ptr<ZelTabbedInspector> inspector(generator.createTabbedInspector());
    window.setCentralWidget(inspector->view());
    window.show();
    QApplication::processEvents();

    const QList<QWidget *> widgets = window.findChildren<QWidget *>();
    const bool isShown = std::any_of(widgets.begin(), widgets.end(), [](const QWidget *widget) {
        return widget->isVisible() && widget->property("text") == QStringLiteral("installed");
    });
    return isShown ? 0 : 1;
}

#include "main.moc"
