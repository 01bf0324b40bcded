#include "src/migrate/site-rows.h"

#include <utility>

namespace torvel::migrate {

std::shared_ptr<const ReferenceRows> referenceRowsOf(const ReferenceEntries& entries) {
    const std::pair<ReferenceKind, const std::map<std::uint32_t, std::string>*> kinds[] = {
        {ReferenceKind::axisParameter, &entries.axisParameters},
        {ReferenceKind::taskParameter, &entries.taskParameters},
        {ReferenceKind::systemParameter, &entries.systemParameters},
        {ReferenceKind::axisItem, &entries.axisItems},
        {ReferenceKind::taskItem, &entries.taskItems},
        {ReferenceKind::systemItem, &entries.systemItems},
    };
    auto rows = std::make_shared<ReferenceRows>();
    for (const auto& [kind, names] : kinds) {
        for (const auto& [number, name] : *names) {
            rows->add(kind, number, name);
        }
    }
    return rows->empty() ? nullptr : rows;
}

std::shared_ptr<const SiteConstants> siteConstantsOf(const ReferenceEntries& entries) {
    return entries.constants.empty() ? nullptr
                                     : std::make_shared<const SiteConstants>(entries.constants);
}

}  // namespace torvel::migrate
