#include "host/typefile/tool/TypeFileTool.h"

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("orvel-typefile"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVEL_VERSION));
    return TypeFileTool::run(QCoreApplication::arguments());
}
