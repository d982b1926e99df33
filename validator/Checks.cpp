#include "validator/Checks.h"

const std::vector<Check>& checks()
{
    static const std::vector<Check> all = [] {
        std::vector<Check> list;
        for (const auto& subject : {loadChecks(), operationChecks(), handlerChecks(), dockingChecks(), threadChecks(),
                                    costChecks(), randomUse()})
            list.insert(list.end(), subject.begin(), subject.end());
        return list;
    }();
    return all;
}
