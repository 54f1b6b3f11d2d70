#ifndef NORQ_TOOLS_REGISTRATION_ORDER_H
#define NORQ_TOOLS_REGISTRATION_ORDER_H

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "norq/options/option_parser.h"

namespace norq {

// A key and its option, as stored in the parser's table.
using OptionEntry = std::pair<std::string, Option>;

// All options in the order in which they were registered.
inline std::vector<const OptionEntry*> in_registration_order(const OptionParser& options) {
  const auto& table = options.get_options();
  std::vector<const OptionEntry*> entries(table.size());
  std::transform(table.begin(), table.end(), entries.begin(),
                 [](const OptionEntry& entry) { return &entry; });
  std::sort(entries.begin(), entries.end(), [](const OptionEntry* a, const OptionEntry* b) {
    return a->second.index < b->second.index;
  });
  return entries;
}

}  // namespace norq

#endif  // NORQ_TOOLS_REGISTRATION_ORDER_H
