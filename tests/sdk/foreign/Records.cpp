#include "Records.h"

#include "Check.h"
#include "RecordingHandler.h"

#include <utilbase/Utils.h>

#include <cstring>

using STreeNode = SSettings::TypeLibrary::STreeNode;

SSettings distinctSettings()
{
    SSettings settings;
    settings.preferences.fahrenheit = true;
    settings.preferences.softEdgeMode = 0;
    settings.preferences.snapSpace = 21;
    settings.layoutShortcuts[3] = QKeySequence(Qt::Key_F7);
    settings.softEdgeShortcuts[9] = QKeySequence(Qt::Key_B, Qt::SHIFT);
    settings.monitoring.nRefreshInterval = 77;
    settings.monitoring.bFan = true;
    settings.monitoring.dVoltage1Min = 3.5;
    settings.monitoring.bVoltage4 = true;
    settings.monitoring.dVoltage4Max = 7.25;
    settings.monitoring.dRcvVoltageMax = 13.5;
    settings.email.nAlertCount = 7;
    settings.email.bSsl = false;
    settings.email.nPort = 2525;
    settings.email.strSenderAddress = QStringLiteral("wall@site.com");
    settings.email.strPassword = QStringLiteral("Secret42");
    settings.email.strSmtpServer = QStringLiteral("smtp.site.com");
    settings.email.lstRecipients = {{QStringLiteral("Ann"), QStringLiteral("ann@host.com")},
                                    {QStringLiteral("Bo"), QStringLiteral("bo@host.com")}};
    return settings;
}

void checkEmail(const SEmailSettings& got, const SEmailSettings& expected)
{
    CHECK(got.nAlertCount == expected.nAlertCount);
    CHECK(got.bSsl == expected.bSsl);
    CHECK(got.nPort == expected.nPort);
    CHECK(got.strSenderAddress == expected.strSenderAddress);
    CHECK(got.strPassword == expected.strPassword);
    CHECK(got.strSmtpServer == expected.strSmtpServer);
    CHECK(got.lstRecipients.size() == 2);
    CHECK(got.lstRecipients.value(1).strName == QLatin1String("Bo"));
    CHECK(got.lstRecipients.value(1).strAddress == QLatin1String("bo@host.com"));
}

void checkSettings(const SSettings& got, const SSettings& expected)
{
    CHECK(got.preferences.fahrenheit == expected.preferences.fahrenheit);
    CHECK(got.preferences.softEdgeMode == expected.preferences.softEdgeMode);
    CHECK(got.preferences.snapSpace == expected.preferences.snapSpace);
    CHECK(got.layoutShortcuts == expected.layoutShortcuts);
    CHECK(got.softEdgeShortcuts == expected.softEdgeShortcuts);
    CHECK(got.monitoring.nRefreshInterval == expected.monitoring.nRefreshInterval);
    CHECK(got.monitoring.bFan == expected.monitoring.bFan);
    CHECK(got.monitoring.dVoltage1Min == expected.monitoring.dVoltage1Min);
    CHECK(got.monitoring.bVoltage4 == expected.monitoring.bVoltage4);
    CHECK(got.monitoring.dVoltage4Max == expected.monitoring.dVoltage4Max);
    CHECK(got.monitoring.dRcvVoltageMax == expected.monitoring.dRcvVoltageMax);
    checkEmail(got.email, expected.email);
}

void checkTree(const std::vector<STreeNode>& tree, const QString& folder)
{
    CHECK(tree.size() == 2);
    if (tree.size() != 2)
        return;
    const STreeNode& single = tree[0];
    CHECK(single.name == QLatin1String("Card"));
    CHECK(single.path == folder + QStringLiteral("/Card.rcvp"));
    CHECK(single.nodeType == STreeNode::SingleRcv);
    CHECK(std::strcmp(single.md5.data, Utils::getFileMD5(single.path).data) == 0);
    CHECK(std::strlen(single.md5.data) == 32);
    CHECK(single.resolution == QSize(RecordingHandler::width, RecordingHandler::height));
    CHECK(single.cabinetBlock == RecordingHandler::block);
    CHECK(!single.cabinetFlag && single.cabinetList.isEmpty());

    const STreeNode& group = tree[1];
    CHECK(group.nodeType == STreeNode::Group);
    CHECK(group.children.size() == 1);
    if (group.children.size() != 1)
        return;
    const STreeNode& multi = group.children[0];
    CHECK(multi.nodeType == STreeNode::MultiRcv);
    CHECK(multi.cabinetFlag);
    CHECK(multi.cabinetList == QList<int>({1, 0}));
}
