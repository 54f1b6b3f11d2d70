// Plays the commands of standard input under the locale of the environment, whose decimal point it
// prints first.

#include <clocale>
#include <iostream>
#include <locale>

#include "session.h"

int main() {
  std::ios::sync_with_stdio(false);
  std::locale::global(std::locale(""));
  std::cout << std::localeconv()->decimal_point << '\n';
  norq::Session session;
  for (std::string line; std::getline(std::cin, line);) std::cout << session.run(line);
}
