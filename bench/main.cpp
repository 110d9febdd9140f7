#include <cstdio>
#include <exception>
#include <string_view>

#include "harness.h"

namespace bench {
namespace {

struct Topic {
  std::string_view Name;
  Rows (*Measure)();
};

constexpr Topic kTopics[] = {{"development", DevelopmentRows},
                             {"flattening", FlatteningRows},
                             {"surface", SurfaceRows},
                             {"pass", DesignPassRows},
                             {"exports", ExportRows},
                             {"opening", SailFileRows},
                             {"frame", FrameRows},
                             {"start", StartRows}};

bool Wanted(const Topic& topic, int count, char** names) {
  if (count == 0) return true;
  for (int i = 0; i < count; ++i)
    if (topic.Name == names[i]) return true;
  return false;
}

void Print(const Row& row) {
  const int places = row.Goal >= 50 ? 0 : row.Goal < 2 ? 3 : 2;
  std::printf("%-52s %9s   %s %-6s %-6s  %s\n", row.Name.c_str(),
              Decimals(row.Value, places).c_str(),
              row.AtLeast ? ">=" : "<=", Decimals(row.Goal, row.Goal < 2 ? 2 : 1).c_str(),
              row.Met() ? "met" : "MISSED", row.Note.c_str());
  std::fflush(stdout);
}

/// Measures and prints the topics that are asked for, all of them by default. The status tells
/// whether every goal was met.
int Run(int count, char** names) {
  int missed = 0;
  std::printf("%-52s %9s   %-9s\n", "what", "ratio", "goal");
  for (const Topic& topic : kTopics) {
    if (!Wanted(topic, count, names)) continue;
    try {
      for (const Row& row : topic.Measure()) {
        Print(row);
        if (!row.Met()) ++missed;
      }
    } catch (const std::exception& failure) {
      std::printf("%s: %s\n", topic.Name.data(), failure.what());
      ++missed;
    }
  }
  std::printf("%s\n", missed == 0 ? "All goals are met." : "A goal is missed.");
  return missed == 0 ? 0 : 1;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) { return bench::Run(argc - 1, argv + 1); }
