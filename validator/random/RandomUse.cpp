#include "validator/Checks.h"
#include "validator/Report.h"
#include "validator/Stage.h"
#include "validator/random/EventStream.h"

namespace {

void survivesRandomUse(const Options& options, Report& report)
{
    Stage stage(options, report);
    if (!stage.isReady())
        return;
    {
        EventStream stream(stage, options);
        stream.run();
    }
    stage.settings().setHandler(nullptr);
    report.expect(stage.await([&] { return stage.host()->handlersAlive == 0; }), "handlers that were replaced live on");
    report.expect(stage.host()->progress.empty(), "a progress display was not ended");
}

} // namespace

std::vector<Check> randomUse()
{
    return {
        {7, "random use", survivesRandomUse},
    };
}
