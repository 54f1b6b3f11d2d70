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

  bool operator()(const Option* a, const Option* b) const noexcept {
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

// The texts around an option's name. Prefix, name and tag form the entry.
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

// The place of help texts: from column `indent` on, in lines of at most `width` bytes.
struct Columns {
  std::size_t indent;
  std::size_t width;
};

constexpr std::size_t page_width = 80;
constexpr std::size_t indented_column = 10;
constexpr std::size_t unlimited = std::string_view::npos;

Columns columns_of(OptionPrintStyle style, const std::vector<const Option*>& listed,
                   OptionBoolStyle bool_style) {
  if (style == PRINT_STYLE_INDENTED) return {indented_column, page_width - indented_column};
  std::size_t widest_entry = 0;
  for (const Option* option : listed) {
    const Frame frame = frame_of(option->type, bool_style);
    widest_entry =
        std::max(widest_entry, frame.prefix.size() + option->name.size() + frame.tag.size());
  }
  const std::size_t indent = widest_entry + 1;
  // If the entries leave no room, nothing is wrapped.
  return {indent, indent < page_width ? page_width - indent : unlimited};
}

void append_line_break(const Columns& columns, std::string* out) {
  out->append(1, '\n').append(columns.indent, ' ');
}

// The end of the line that starts at `start`: the end of the last word that fits with the space
// after it, or else the end of the first word, however long it is.
std::size_t end_of_line(std::string_view paragraph, std::size_t start, std::size_t width) {
  const str::IsSpace is_space;
  const std::size_t last = start + width - 1;
  if (last >= paragraph.size()) return paragraph.size();
  for (std::size_t end = last + 1; end-- > start;) {
    if (is_space(paragraph[end])) return end;
  }
  std::size_t end = last + 1;
  while (end < paragraph.size() && !is_space(paragraph[end])) ++end;
  return end;
}

// Wraps a paragraph that is too long for a line. Every white-space byte ends a word, so words may
// be empty, and every word is followed by one space.
void append_wrapped(std::string_view paragraph, const Columns& columns, std::string* out) {
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = end_of_line(paragraph, start, columns.width);
    // If the first word is too long, the first line is empty.
    if (start == 0 && end >= columns.width) append_line_break(columns, out);
    const auto line_length = static_cast<std::ptrdiff_t>(end - start + 1);
    out->append(paragraph, start, end - start).append(1, ' ');
    std::replace_if(out->end() - line_length, out->end(), str::IsSpace(), ' ');
    if (end == paragraph.size()) return;
    append_line_break(columns, out);
    start = end + 1;
  }
}

// Appends a help text, from its first column to the end of its last line.
void append_text(std::string_view text, const Columns& columns, std::string* out) {
  for (;;) {
    const std::string_view paragraph = text.substr(0, text.find('\n'));
    if (paragraph.size() <= columns.width) {
      out->append(paragraph);
    } else {
      append_wrapped(paragraph, columns, out);
    }
    if (paragraph.size() == text.size()) return;
    text.remove_prefix(paragraph.size() + 1);
    append_line_break(columns, out);
  }
}

// An option's help text, with the allowed values of an enumeration.
std::string help_of(const Option& option) {
  std::string help = option.help;
  if (option.type != OPT_ENUM || option.enum_values == nullptr) return help;
  help += "\nPossible values:";
  for (const auto& [value_name, value] : *option.enum_values) {
    help.append("\n- ").append(value_name).append(" : ").append(value.second);
  }
  return help;
}

// Appends an option's entry and help text, and a line feed.
void append_option(const Option& option, OptionBoolStyle bool_style, OptionPrintStyle style,
                   const Columns& columns, std::string* out) {
  const Frame frame = frame_of(option.type, bool_style);
  const std::size_t start = out->size();
  out->append(frame.prefix).append(option.name).append(frame.tag);
  const std::size_t entry_length = out->size() - start;

  const std::string help = help_of(option);
  if (help == "deprecated") {
    out->push_back('\n');
    return;
  }
  if (style == PRINT_STYLE_TAB) {
    out->append(1, '\t').append(help);
  } else if (style == PRINT_STYLE_INDENTED) {
    append_line_break(columns, out);
    append_text(help, columns, out);
  } else {
    out->append(columns.indent - entry_length, ' ');
    append_text(help, columns, out);
  }
  out->push_back('\n');
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
  for (const Option* option : listed) {
    text.clear();
    if (order == PRINT_ORDER_GROUP_NAME && option->group != last_group) {
      if (last_group != no_group) text += '\n';
      text.append(help_group_names[option->group]).append(1, '\n');
      last_group = option->group;
    }
    append_option(*option, bool_style, style, columns, &text);
    out << text;
  }
  out.flush();
}

}  // namespace norq
