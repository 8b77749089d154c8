#include <iostream>

#include "cli/commandes.h"

int main(int argc, char** argv) { return arbolix::cli::Executer(argc, argv, std::cout, std::cerr); }
