// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelDescribedOptions.h"

#include "Core/Values/private/ZelNumberScanner.h"
#include "Inspector/Properties/ZelOptionGroup.h"
#include "Inspector/Properties/private/ZelOptionValue.h"

#include <algorithm>

namespace {

ZelOption *makeOption(const ZelDescribedOptions::Option &described, QObject *parent)
{
    auto *option = new ZelOption(parent);
    option->title = described.title;
    option->image = described.image;
    option->hidden = described.hidden;
    option->enabled = described.enabled;
    option->value = described.value;
    ZelOptionValue::setText(option, described.text, described.place);
    return option;
}

bool isPlain(const ZelDescribedOptions::Option &option)
{
    const bool isNumber = ZelNumberScanner::isInteger(option.text) &&
                          (!ZelNumberScanner::isHexadecimal(option.text) || ZelNumberScanner::hexadecimal(option.text));
    return option.image.isNull() && (option.text.isNull() || isNumber);
}

} // namespace

QList<ZelOptionGroup *> ZelDescribedOptions::makeGroups(QObject *parent) const
{
    QList<ZelOptionGroup *> made;
    for (const Group &described : groups) {
        auto *group = new ZelOptionGroup(parent);
        group->enumeratedValuesKeyPath = described.enumeratedValuesKeyPath;
        group->enumeratedDisplayValuesKeyPath = described.enumeratedDisplayValuesKeyPath;
        QList<ZelOption *> options;
        for (const Option &option : described.options)
            options.append(makeOption(option, group));
        group->setOptions(options);
        made.append(group);
    }
    return made;
}

QStringList ZelDescribedOptions::titles() const
{
    QStringList titles;
    for (const Group &group : groups) {
        for (const Option &option : group.options)
            titles.append(option.title);
    }
    return titles;
}

bool ZelDescribedOptions::isPlaceless() const
{
    return std::ranges::all_of(groups, [](const Group &group) {
        return group.enumeratedValuesKeyPath.isNull() && group.enumeratedDisplayValuesKeyPath.isNull() &&
               std::ranges::all_of(group.options, isPlain);
    });
}
