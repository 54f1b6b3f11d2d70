#include <fstream>
#include <ios>
#include <istream>
#include <locale>
#include <stdexcept>
#include <string>
#include <string_view>

#include "norq/options/option_parser.h"
#include "norq/utils/string_utils.h"

namespace norq {

namespace {

// Splits a file into statements.
class StatementReader {
 public:
  explicit StatementReader(const std::string& file_name) {
    file.imbue(std::locale::classic());  // another locale may convert the bytes
    file.open(file_name, std::ios_base::in | std::ios_base::binary);
    if (!file) throw Exception("unable to open config file: ", true) << file_name;
    file.exceptions(std::ios_base::badbit);  // so that std::bad_alloc propagates
  }

  // Reads the next statement: the pieces of one or more lines, joined by spaces. Returns false at
  // the end of the file, which also ends a continued statement.
  bool read(std::string* statement) {
    statement->clear();
    std::string_view separator;
    while (read_line()) {
      std::string_view piece = str::strip_view(line, str::IsSpace());
      if (piece.empty() || piece.front() == '#') continue;
      const bool continued = piece.back() == '\\';
      if (continued) piece = str::rstrip_view(piece.substr(0, piece.size() - 1), str::IsSpace());
      statement->append(separator).append(piece);
      separator = " ";
      if (!continued) return true;
    }
    return !statement->empty();
  }

  // The number of the last line read, from 1.
  long long line_number() const { return lines_read; }

 private:
  // Reads up to the next line feed. A read error ends the file.
  bool read_line() {
    try {
      std::getline(file, line);
    } catch (const std::ios_base::failure&) {
      return false;
    }
    if (!file) {
      // Apart from the end of the file, only a full string stops std::getline.
      if (!file.eof()) throw std::length_error("line exceeds std::string::max_size()");
      return false;
    }
    ++lines_read;
    return true;
  }

  std::ifstream file;
  std::string line;
  long long lines_read = 0;
};

Exception invalid_line(long long line_number, const std::string& file_name) {
  Exception exception("invalid line ", true);
  exception << line_number << " in config file: " << file_name;
  return exception;
}

}  // namespace

void OptionParser::parse_config_file(const std::string& file_name, int level) {
  StatementReader reader(file_name);
  std::string statement;
  std::string key;
  std::string value;
  while (reader.read(&statement)) {
    const std::size_t equals = statement.find('=');
    if (equals == std::string::npos) throw invalid_line(reader.line_number(), file_name);
    try {
      const std::string_view text = statement;
      key = str::strip_view(text.substr(0, equals), str::IsSpace());
      value = str::strip_view(text.substr(equals + 1), str::IsSpace());
      parse_option(key, value, level);
    } catch (const std::exception& reason) {
      throw invalid_line(reader.line_number(), file_name) << " (" << reason.what() << ")";
    }
  }
}

}  // namespace norq
