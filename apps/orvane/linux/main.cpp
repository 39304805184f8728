#include <iostream>

#include "apps/orvane/Program.h"

int main(int argc, char** argv) { return runProgram({argv + 1, argv + argc}); }

void showError(const std::string& line) { std::cerr << line + "\n"; }
