// transcript COMMANDS RESULTS: writes the commands, which stand a line each in the file COMMANDS,
// and what came of each, as `expected` has it. Of the first, RESULTS/1.out, RESULTS/1.err and
// RESULTS/1.status tell that.
#include "replay/transcript.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

namespace {

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw std::runtime_error(path + ": cannot be opened");
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

ovxid::recording::Said saidOf(const std::string& result) {
  return {std::stoi(contentOf(result + ".status")), contentOf(result + ".out"),
          contentOf(result + ".err")};
}

void write(const std::string& commands, const std::string& results) {
  std::ifstream lines(commands);
  int count = 0;
  for (std::string command; std::getline(lines, command);) {
    std::cout << (count == 0 ? "" : "\n") << "$ " << command << "\n";
    std::cout << ovxid::replay::transcript(saidOf(results + "/" + std::to_string(++count)));
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: transcript COMMANDS RESULTS\n";
    return 2;
  }
  try {
    write(argv[1], argv[2]);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "transcript: " << error.what() << "\n";
    return 1;
  }
}
