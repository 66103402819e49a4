// SPDX-License-Identifier: MIT
// The smallest complete inspector: one plain object, edited by what Smallest.xml describes.
#include "Blocks/ZelWindow.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelInspectorSlice.h"
#include "ViewController/ZelView.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>
#include <memory>

class Lamp : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER name NOTIFY changed)
    Q_PROPERTY(bool on MEMBER on NOTIFY changed)
    Q_PROPERTY(double brightness MEMBER brightness NOTIFY changed)
public:
    QString name = "Desk";
    bool on = true;
    double brightness = 60;

Q_SIGNALS:
    void changed();
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    Lamp lamp;

    ZelWindow window;
    auto *layout = new QVBoxLayout(&window);

    ZelDeclarativeInspectorGenerator generator;
    generator.setUrl(QUrl("qrc:/Smallest.xml"));
    generator.setOwner(&lamp);
    const std::unique_ptr<ZelInspectorSlice> inspector(generator.createSlice());
    layout->addWidget(inspector->view());

    auto *label = new QLabel;
    const auto describe = [&] {
        label->setText(lamp.on ? QString("%1 shines at %2 %").arg(lamp.name).arg(lamp.brightness)
                               : QString("%1 is dark").arg(lamp.name));
    };
    QObject::connect(&lamp, &Lamp::changed, label, describe);
    describe();
    layout->addWidget(label);

    window.resize(320, 160);
    window.show();
    return application.exec();
}

#include "main.moc"
