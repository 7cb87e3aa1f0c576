#include "tests/support/Support.h"

int main(int argc, char** argv) { return essai::Lance(argc, argv); }
