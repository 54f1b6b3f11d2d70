// Lists random options in every order and layout.

#include <sstream>

#include "fuzz.h"
#include "norq/utils/sort.h"

using namespace norq;

// The text that decides where an option is listed, and the option.
using Element = std::pair<std::string, const Option*>;

static std::string entry_of(const Option& option, OptionBoolStyle style) {
  const char* const signs[] = {" -[no_]", " (+|-)", " -"};
  const char* const bool_tags[] = {"", "", "=BOOL"};
  const char* const tags[] = {bool_tags[style], "=INT", "=INT", "=FLOAT", "=STR", "", "=ENUM"};
  return (option.type == OPT_BOOL ? signs[style] : " -") + option.name + tags[option.type];
}

static Strings lines_of(const std::string& text, std::size_t width) {
  Strings lines;
  std::istringstream paragraphs(text + '\n');
  for (std::string paragraph; std::getline(paragraphs, paragraph);) {
    lines.push_back(paragraph.size() > width ? "" : paragraph);
    if (paragraph.size() <= width) continue;
    std::replace(paragraph.begin(), paragraph.end(), '\t', ' ');
    std::istringstream words(paragraph + ' ');
    for (std::string word; std::getline(words, word, ' '); lines.back() += word + ' ') {
      if (lines.back().size() + word.size() + 1 > width) lines.emplace_back();
    }
  }
  return lines;
}

static std::string listing_of(const std::vector<Element>& elements, OptionBoolStyle style,
                              OptionPrintOrder order, OptionPrintStyle layout) {
  std::size_t widest = 0;
  for (const Element& e : elements) widest = std::max(widest, entry_of(*e.second, style).size());
  const std::size_t indents[] = {0, widest + 1, 10};
  const std::size_t widths[] = {~0u, widest < 79 ? 79 - widest : ~0u, 70};
  std::string listing = "Heading\n";
  int last_group = -1;
  for (const auto& [key, option] : elements) {
    if (order == PRINT_ORDER_GROUP_NAME && option->group != last_group) {
      if (last_group != -1) listing += '\n';
      last_group = option->group;
      listing += (last_group == 0 ? "" : "Group " + std::to_string(last_group)) + '\n';
    }
    const std::string entry = entry_of(*option, style);
    std::string help = option->help;
    if (option->enum_values != nullptr) {
      help += "\nPossible values:\n- fast : " + option->enum_values->at("fast").second;
    }
    const std::string margin(indents[layout], ' ');
    const std::string gaps[] = {"\t", std::string(widest + 1 - entry.size(), ' '), '\n' + margin};
    std::string gap = gaps[layout];
    listing += entry;
    for (const auto& line : help == "deprecated" ? Strings() : lines_of(help, widths[layout])) {
      listing += std::exchange(gap, '\n' + margin) + line;
    }
    listing += '\n';
  }
  return listing;
}

int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Input input = {data, data + size};
  const auto order = static_cast<OptionPrintOrder>(input.below(6));  // the last is no known order
  const auto layout = static_cast<OptionPrintStyle>(input.below(3));
  const bool cuts_badly = input.below(4) == 0;  // each partition cuts off two elements
  RandomParser random(input);
  std::vector<Element> elements;
  for (const std::string& key : random.keys) {
    Option* const option = random.parser.get_option(key);
    const std::size_t i = elements.size();
    if (cuts_badly)
      option->name = std::to_string(i + 1 == random.keys.size() ? 102 : 101 + i + i % 2 * 2);
    const std::string& name = option->name;
    const std::string index = std::to_string(1000 + option->index);
    const std::string type = std::to_string(option->type);
    const std::string group = std::to_string(100 + option->group);
    const std::string deciding[] = {index, name, type + index, type + name, group + name, ""};
    elements.emplace_back(deciding[order], option);
  }
  const auto precedes = [](const Element& a, const Element& b) { return a.first < b.first; };
  norq::sort(elements.data(), elements.data() + elements.size(), precedes);
  if (!std::is_sorted(elements.begin(), elements.end(), precedes)) std::abort();
  std::ostringstream listing;
  random.parser.print_help(listing, "Heading", order, layout);
  expect_equal(listing.str(), listing_of(elements, random.style, order, layout));
  return 0;
}
