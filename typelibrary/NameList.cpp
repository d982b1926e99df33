#include "typelibrary/NameList.h"

#include <QCoreApplication>

namespace {

constexpr int mostNames = 20;

} // namespace

QString joinedNames(const QStringList& names)
{
    //: Between the names of a list
    const QString separator = QCoreApplication::translate("NameList", ", ");
    const QString joined = names.mid(0, mostNames).join(separator);
    const int others = names.size() - mostNames;
    return others > 0 ? QCoreApplication::translate("NameList", "%1 and %n more", nullptr, others).arg(joined) : joined;
}
