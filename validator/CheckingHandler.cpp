#include "validator/CheckingHandler.h"

#include "plugin/interface/SHwRcvInCabinetInfo.h"
#include "validator/Report.h"
#include "validator/TypeFiles.h"

#include <QEasingCurve>

#include <algorithm>
#include <utility>

// One call of the handler, from its begin to its end.
class CheckingHandler::Call
{
public:
    enum Where
    {
        OnGuiThread,
        Anywhere,
    };

    Call(CheckingHandler& handler, const char* operation, Where where)
        : m_handler(handler),
          m_isScan(std::this_thread::get_id() != handler.state().guiThread)
    {
        HostState& state = handler.state();
        ++state.calls;
        ++handler.m_underWay;
        if (where == OnGuiThread && m_isScan)
            state.report.fail(
                QStringLiteral("%1 was called on a thread that is not the GUI thread").arg(QLatin1String(operation)));
        if (where == Anywhere)
            ++state.queries;
        if (where == Anywhere && m_isScan && ++state.scansAsking > 1)
            state.report.fail(QStringLiteral("%1 was called by two scans at once").arg(QLatin1String(operation)));
        m_isCounted = where == Anywhere && m_isScan;
    }
    ~Call()
    {
        if (m_isCounted)
            --m_handler.state().scansAsking;
        --m_handler.m_underWay;
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

private:
    CheckingHandler& m_handler;
    const bool m_isScan;
    bool m_isCounted = false;
};

CheckingHandler::CheckingHandler(std::shared_ptr<HostState> state)
    : m_pState(std::move(state))
{
    ++m_pState->handlersAlive;
}

CheckingHandler::~CheckingHandler()
{
    if (m_underWay > 0)
        m_pState->report.fail(QStringLiteral("a handler was deleted while a call of it was under way"));
    --m_pState->handlersAlive;
}

void CheckingHandler::notifyShortcutPanelVisible(bool visible)
{
    const Call call(*this, "notifyShortcutPanelVisible", Call::OnGuiThread);
    state().isPanelShown = visible;
}

bool CheckingHandler::SendEmail(QList<int>& failedPositions, const SEmailSettings& settings, const QString& body)
{
    const Call call(*this, "SendEmail", Call::OnGuiThread);
    HostState& host = state();
    if (settings.lstRecipients.isEmpty() || settings.strSenderAddress.isEmpty() || body.isEmpty())
        host.report.fail(QStringLiteral("SendEmail was called without recipients, sender or text"));
    const auto isOutside = [&](int position) { return position < 0; };
    if (std::any_of(failedPositions.begin(), failedPositions.end(), isOutside))
        host.report.fail(QStringLiteral("SendEmail was given a negative position"));
    failedPositions.clear();
    if (!host.sendsMail)
        failedPositions.append(settings.lstRecipients.size() - 1);
    return host.sendsMail || settings.lstRecipients.size() > 1;
}

bool CheckingHandler::isProjectModified()
{
    const Call call(*this, "isProjectModified", Call::OnGuiThread);
    return state().isProjectModified;
}

bool CheckingHandler::hasProjectPath()
{
    const Call call(*this, "hasProjectPath", Call::OnGuiThread);
    return state().hasProjectPath;
}

QString CheckingHandler::projectName()
{
    const Call call(*this, "projectName", Call::OnGuiThread);
    return QStringLiteral("Wall <b>1</b>");
}

void CheckingHandler::saveProject(const QString& path)
{
    const Call call(*this, "saveProject", Call::OnGuiThread);
    if (path.isEmpty() && !state().hasProjectPath)
        state().report.fail(QStringLiteral("saveProject got no path for a project that has none"));
    state().isProjectModified = false;
}

void CheckingHandler::setConnectionPriority(int priority)
{
    const Call call(*this, "setConnectionPriority", Call::OnGuiThread);
    if (priority < 0 || priority > 2)
        state().report.fail(QStringLiteral("setConnectionPriority was called with %1").arg(priority));
    state().lastPriority = priority;
}

void CheckingHandler::setLanguage(const QLocale& locale)
{
    const Call call(*this, "setLanguage", Call::OnGuiThread);
    if (state().languageSwitch)
        state().languageSwitch(locale);
}

bool CheckingHandler::isTypeUsedInLayout(const SMD5& md5)
{
    const Call call(*this, "isTypeUsedInLayout", Call::OnGuiThread);
    // Every fourth type or so.
    return state().areTypesUsed && md5.data[0] != '\0' && md5.data[0] < '4';
}

bool CheckingHandler::isMultiRcvCabinetFile(const QString& path)
{
    const Call call(*this, "isMultiRcvCabinetFile", Call::Anywhere);
    const auto content = TypeFiles::read(path);
    return content && content->cabinet;
}

void CheckingHandler::readCabinetInfo(const QString& path, SHwRcvInCabinetInfo& info)
{
    const Call call(*this, "readCabinetInfo", Call::Anywhere);
    const auto content = TypeFiles::read(path);
    if (content && content->cabinet)
        info = *content->cabinet;
}

void CheckingHandler::writeCabinetInfo(const QString& path, const SHwRcvInCabinetInfo& info)
{
    const Call call(*this, "writeCabinetInfo", Call::OnGuiThread);
    if (info.columns * info.rows < 1 || info.columns * info.rows > 10)
        state().report.fail(QStringLiteral("writeCabinetInfo got %1 x %2 receivers").arg(info.columns).arg(info.rows));
    // No other program writes here, but another scan of ours may have seen the file go.
    if (auto content = TypeFiles::read(path)) {
        content->cabinet = info;
        TypeFiles::write(path, TypeFiles::textOf(*content));
    }
}

void CheckingHandler::queryCabinetResolution(const QString& path, int& width, int& height)
{
    const Call call(*this, "queryCabinetResolution", Call::Anywhere);
    if (width != -1 || height != -1)
        state().report.fail(QStringLiteral("queryCabinetResolution got %1 x %2 on entry").arg(width).arg(height));
    if (const auto content = TypeFiles::read(path)) {
        width = content->width;
        height = content->height;
    }
}

std::array<std::int64_t, 4> CheckingHandler::queryCabinetBlock(const QString& path)
{
    const Call call(*this, "queryCabinetBlock", Call::Anywhere);
    const auto content = TypeFiles::read(path);
    return content ? std::array<std::int64_t, 4>{content->serial, content->width, content->height, -1}
                   : std::array<std::int64_t, 4>{};
}

QObject* CheckingHandler::showProgress(const QString& text, int durationMs, const QEasingCurve& /*curve*/)
{
    const Call call(*this, "showProgress", Call::OnGuiThread);
    if (text.isEmpty() || durationMs < 0)
        state().report.fail(
            QStringLiteral("showProgress was called for %1 ms, without a text or in the past").arg(durationMs));
    auto* const progress = new QObject;
    state().progress.insert(progress);
    return progress;
}

void CheckingHandler::endProgress(QObject* progress)
{
    const Call call(*this, "endProgress", Call::OnGuiThread);
    if (state().progress.erase(progress) != 1)
        state().report.fail(QStringLiteral("endProgress was called for what showProgress did not give, or twice"));
    else
        delete progress;
}

bool CheckingHandler::isPriorityConnectionHidden()
{
    const Call call(*this, "isPriorityConnectionHidden", Call::OnGuiThread);
    return state().isPriorityHidden;
}
