// SPDX-License-Identifier: MIT
#include <Platform/Runtime/ZelKeyValueCoding.h>

#include <QApplication>
#include <QLabel>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QLabel label("installed");
    label.show();
    return ZelValueForKeyPath(&label, "text") == QVariant("installed") ? 0 : 1;
}
