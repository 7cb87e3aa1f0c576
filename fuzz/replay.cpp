// Runs a fuzz target over the files of its corpus, without the fuzzing engine, so that every test run replays them.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/places/Lieux.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille);

TEST(Corpus, EveryFileIsReadOrRefused) {
  const std::string corpus = essai::DossierSource() + "/fuzz/corpus/" + OVELIN_FUZZ_CORPUS;
  int nombre = 0;
  for (const auto& entree : std::filesystem::directory_iterator(corpus)) {
    if (!entree.is_regular_file()) continue;
    SCOPED_TRACE(entree.path().string());
    std::ifstream f(entree.path(), std::ios::binary);
    const std::vector<char> octets{std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    EXPECT_EQ(LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(octets.data()), octets.size()), 0);
    ++nombre;
  }
  EXPECT_GT(nombre, 0) << corpus;
}
