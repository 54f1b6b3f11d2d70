#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "norq/options/option_parser.h"
#include "norq/utils/sort.h"
#include "norq/utils/string_utils.h"

namespace norq {

namespace {

struct OptionComparator {
  OptionPrintOrder order;

  bool operator()(const Option* a, const Option* b) const {
    switch (order) {
      case PRINT_ORDER_INDEX:
        return a->index < b->index;
      case PRINT_ORDER_NAME:
        return a->name < b->name;
      case PRINT_ORDER_TYPE_INDEX:
        return a->type != b->type ? a->type < b->type : a->index < b->index;
      case PRINT_ORDER_TYPE_NAME:
        return a->type != b->type ? a->type < b->type : a->name < b->name;
      case PRINT_ORDER_GROUP_NAME:
        return a->group != b->group ? a->group < b->group : a->name < b->name;
    }
    return false;
  }
};

// What stands around an option's name. Together they are its entry.
struct Frame {
  std::string_view prefix;
  std::string_view tag;
};

Frame bool_frame(OptionBoolStyle style) {
  switch (style) {
    case BOOL_STYLE_NO_PREFIX:
      return {" -[no_]", ""};
    case BOOL_STYLE_PLUS_MINUS:
      return {" (+|-)", ""};
    case BOOL_STYLE_VALUE:
      return {" -", "=BOOL"};
  }
  return {" -", ""};
}

Frame frame_of(OptionType type, OptionBoolStyle style) {
  switch (type) {
    case OPT_BOOL:
      return bool_frame(style);
    case OPT_UINT:
    case OPT_INT:
      return {" -", "=INT"};
    case OPT_FLOAT:
      return {" -", "=FLOAT"};
    case OPT_STR:
      return {" -", "=STR"};
    case OPT_ENUM:
      return {" -", "=ENUM"};
    case OPT_FLAG:
      break;
  }
  return {" -", ""};
}

std::size_t entry_length(const Option& option, OptionBoolStyle style) {
  const Frame frame = frame_of(option.type, style);
  return frame.prefix.size() + option.name.size() + frame.tag.size();
}

// Where help texts stand: from column `indent` on, in lines of at most `width` bytes.
struct Columns {
  std::size_t indent;
  std::size_t width;
};

constexpr std::size_t page_width = 80;
constexpr std::size_t unlimited = std::string_view::npos;

Columns columns_of(OptionPrintStyle style, const std::vector<const Option*>& listed,
                   OptionBoolStyle bool_style) {
  if (style == PRINT_STYLE_INDENTED) return {10, page_width - 10};
  std::size_t widest_entry = 0;
  for (const Option* option : listed) {
    widest_entry = std::max(widest_entry, entry_length(*option, bool_style));
  }
  const std::size_t indent = widest_entry + 1;
  // Where the entries leave no room, text keeps the lines that it has.
  return {indent, indent < page_width ? page_width - indent : unlimited};
}

void append_line_break(const Columns& columns, std::string* out) {
  out->append(1, '\n').append(columns.indent, ' ');
}

// Fills lines with the words of a paragraph that is too long for one. Every white-space byte ends a
// word, so that words may be empty, and every word is followed by one space.
void append_filled(std::string_view paragraph, const Columns& columns, std::string* out) {
  const str::IsSpace is_space;
  std::size_t line_length = 0;
  for (std::size_t start = 0; start <= paragraph.size();) {
    std::size_t end = start;
    while (end < paragraph.size() && !is_space(paragraph[end])) ++end;
    const std::size_t word_length = end - start;
    if (line_length + word_length + 1 > columns.width) {
      append_line_break(columns, out);
      line_length = 0;
    }
    out->append(paragraph, start, word_length).append(1, ' ');
    line_length += word_length + 1;
    start = end + 1;
  }
}

// Appends a help text from the column where it starts to its last line's end.
void append_text(std::string_view text, const Columns& columns, std::string* out) {
  for (;;) {
    const std::string_view paragraph = text.substr(0, text.find('\n'));
    if (paragraph.size() <= columns.width) {
      out->append(paragraph);
    } else {
      append_filled(paragraph, columns, out);
    }
    if (paragraph.size() == text.size()) return;
    text.remove_prefix(paragraph.size() + 1);
    append_line_break(columns, out);
  }
}

// An option's help text as it is listed: with the allowed values of an enumeration.
void compose_help(const Option& option, std::string* help) {
  *help = option.help;
  if (option.type != OPT_ENUM || option.enum_values == nullptr) return;
  help->append("\nPossible values:");
  for (const auto& [value_name, value] : *option.enum_values) {
    help->append("\n- ").append(value_name).append(" : ").append(value.second);
  }
}

}  // namespace

void OptionParser::print_help(std::ostream& out, const std::string& heading, OptionPrintOrder order,
                              OptionPrintStyle style) {
  if (!heading.empty()) out << heading << '\n';

  std::vector<const Option*> listed;
  listed.reserve(options.size());
  for (const auto& [key, option] : options) listed.push_back(&option);
  norq::sort(listed.data(), listed.data() + listed.size(), OptionComparator{order});

  const Columns columns = columns_of(style, listed, bool_style);
  constexpr int no_group = -1;
  int last_group = no_group;
  std::string text;
  std::string help;
  for (const Option* option : listed) {
    text.clear();
    if (order == PRINT_ORDER_GROUP_NAME && option->group != last_group) {
      if (last_group != no_group) text += '\n';
      text.append(help_group_names[option->group]).append(1, '\n');
      last_group = option->group;
    }

    const Frame frame = frame_of(option->type, bool_style);
    text.append(frame.prefix).append(option->name).append(frame.tag);

    compose_help(*option, &help);
    if (help != "deprecated") {
      if (style == PRINT_STYLE_TAB) {
        text.append(1, '\t').append(help);
      } else {
        if (style == PRINT_STYLE_INDENTED) {
          append_line_break(columns, &text);
        } else {
          text.append(columns.indent - entry_length(*option, bool_style), ' ');
        }
        append_text(help, columns, &text);
      }
    }
    text += '\n';
    out << text;
  }
  out.flush();
}

}  // namespace norq
