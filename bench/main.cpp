// Measures what an import costs, phase by phase, on modules
// of growing size. docs/benchmarks.md says how to read it.
#include <benchmark/benchmark.h>
#include <iostream>

#include "bench/BareXml.h"
#include "bench/ExportScript.h"
#include "bench/LinkedPackage.h"
#include "bench/Report.h"
#include "bench/Workspace.h"

namespace kestrune::bench {

namespace {

using Run = std::function<Cost(const Workspace&, int objects)>;

struct Size {
  int objects;
  int rounds;  // how often that is measured; the best one counts
};
using Sizes = std::vector<Size>;

struct Phase {
  const char* name;
  Sizes of_modules;
  Run ours;
  Run bare;
};

Cost ImportFromEmpty(const Workspace& workspace, int objects) {
  const Text model = workspace.CopyOf(workspace.EmptyModel());
  const Cost cost = LinkedPackage(workspace.Path(), model).Import(workspace.Export(objects, Edition::kFirst));
  workspace.KeepImported(model, objects);
  return cost;
}

Cost ImportUnchanged(const Workspace& workspace, int objects) {
  return LinkedPackage(workspace.Path(), workspace.ImportedModel(objects))
      .Import(workspace.Export(objects, Edition::kFirst));
}

Cost ImportChanged(const Workspace& workspace, int objects) {
  return LinkedPackage(workspace.Path(), workspace.CopyOf(workspace.ImportedModel(objects)))
      .Import(workspace.Export(objects, Edition::kNext));
}

Cost LoadExport(const Workspace& workspace, int objects) {
  return LinkedPackage(workspace.Path(), workspace.CopyOf(workspace.EmptyModel()))
      .LoadExport(workspace.Export(objects, Edition::kFirst));
}

Cost ParseExport(const Workspace& workspace, int objects) {
  const Text path = workspace.Export(objects, Edition::kFirst);
  return Measure([&] { ParseFile(path); });
}

Cost ReadPackage(const Workspace& workspace, int objects) {
  return LinkedPackage(workspace.Path(), workspace.ImportedModel(objects)).ReadPackage();
}

Cost QueryPackage(const Workspace& workspace, int objects) {
  return LinkedPackage(workspace.Path(), workspace.ImportedModel(objects)).QueryBare();
}

const std::vector<Phase>& Phases() {
  static const Sizes kQuick = {{1'000, 20}, {10'000, 10}, {100'000, 10}};
  static const Sizes kMedium = {{1'000, 10}, {10'000, 5}, {100'000, 4}};
  static const Sizes kSlow = {{1'000, 5}, {10'000, 2}, {100'000, 1}};
  static const std::vector<Phase> phases = {
      {"load the export", kQuick, LoadExport, ParseExport},
      {"import, from empty", kSlow, ImportFromEmpty, {}},
      {"read the package", kMedium, ReadPackage, QueryPackage},
      {"import, nothing changed", kMedium, ImportUnchanged, {}},
      {"import, 1 % changed", kMedium, ImportChanged, {}},
      {"export script", {{1'000, 5}, {10'000, 2}}, RunExportScript, {}},
  };
  return phases;
}

void KeepBest(std::optional<Cost>& best, const Cost& cost) {
  if (best)
    best->KeepBest(cost);
  else
    best = cost;
}

/// Ours and the bare work take turns, so that whatever else the machine does falls on both.
void MeasurePhase(benchmark::State& state, const Phase& phase, const Workspace& workspace,
                  std::vector<Result>& results) {
  const int objects = static_cast<int>(state.range(0));
  std::optional<Cost> ours;
  std::optional<Cost> bare;
  for ([[maybe_unused]] auto _ : state) {
    if (phase.bare) KeepBest(bare, InChild([&] { return phase.bare(workspace, objects); }));
    const Cost cost = InChild([&] { return phase.ours(workspace, objects); });
    state.SetIterationTime(cost.seconds);
    KeepBest(ours, cost);
  }
  const Result& result = results.emplace_back(Result{phase.name, objects, *ours, bare});
  state.counters["calls"] = static_cast<double>(ours->calls);
  state.counters["writes"] = static_cast<double>(ours->writes);
  state.counters["peak_MB"] = ours->peak_mb;
  if (!bare) return;
  state.counters["time_ratio"] = result.TimeRatio();
  state.counters["memory_ratio"] = result.MemoryRatio();
}

void RegisterPhases(const Workspace& workspace, std::vector<Result>& results) {
  for (const Phase& phase : Phases()) {
    for (const Size& size : phase.of_modules) {
      benchmark::RegisterBenchmark(
          phase.name, [&](benchmark::State& state) { MeasurePhase(state, phase, workspace, results); })
          ->Arg(size.objects)
          ->Iterations(size.rounds)
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond);
    }
  }
}

}  // namespace

}  // namespace kestrune::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  try {
    const kestrune::bench::Workspace workspace;
    std::vector<kestrune::bench::Result> results;
    kestrune::bench::RegisterPhases(workspace, results);
    benchmark::RunSpecifiedBenchmarks();
    std::cout << '\n';
    PrintReport(results, std::cout);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
  return 0;
}
