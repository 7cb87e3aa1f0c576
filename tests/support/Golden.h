// Whole G-code files against those that were looked over once (tests/golden).
#pragma once

#include <string>

namespace essai {

// Two G-code texts by their meaning: comments as text, words by letter and number (one unit of the last decimal
// apart at most, F within a millionth). "" when they agree, else the first difference with its line.
std::string CompareNC(const std::string& attendu, const std::string& obtenu);

// The file `obtenu` against tests/golden/<nom>.nc. With OVELIN_GOLDEN_OUT set, the file is copied there as well,
// for dev/promote-golden. "" when they agree.
std::string CompareGolden(const std::string& nom, const std::string& obtenu);

// A file of lines against tests/golden/<nom>, byte for byte; copied as above. "" when they agree, else the first
// line that differs.
std::string CompareGoldenTexte(const std::string& nom, const std::string& obtenu);

// The few texts that golden files are written with, so that they don't change with the translations: a French file
// in the program's folder of this test.
void InstalleTextesGolden();

}  // namespace essai
