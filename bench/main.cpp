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

using Run = std::function<Cost(const Workspace&, const Module&, int objects)>;

struct Size {
  int objects;
  int rounds;  // how often that is measured; the one in the middle counts
};
using Sizes = std::vector<Size>;

struct Phase {
  std::string name;
  const Module& of;
  Sizes of_modules;
  Run ours;
  Run bare = {};
  Run bare_scan = {};
};

Cost ImportFromEmpty(const Workspace& workspace, const Module& module, int objects) {
  const Text model = workspace.CopyOf(workspace.EmptyModel(module));
  const Text exported = workspace.Export(module, objects, Edition::kFirst);
  const Cost cost = LinkedPackage(workspace.Path(), model).Import(exported);
  workspace.KeepImported(model, module, objects);
  return cost;
}

Cost ImportUnchanged(const Workspace& workspace, const Module& module, int objects) {
  return LinkedPackage(workspace.Path(), workspace.ImportedModel(module, objects))
      .Import(workspace.Export(module, objects, Edition::kFirst));
}

Cost ImportChanged(const Workspace& workspace, const Module& module, int objects) {
  return LinkedPackage(workspace.Path(), workspace.CopyOf(workspace.ImportedModel(module, objects)))
      .Import(workspace.Export(module, objects, Edition::kNext));
}

Cost LoadExport(const Workspace& workspace, const Module& module, int objects) {
  return LinkedPackage(workspace.Path(), workspace.CopyOf(workspace.EmptyModel(module)))
      .LoadExport(workspace.Export(module, objects, Edition::kFirst));
}

Cost ParseExport(const Workspace& workspace, const Module& module, int objects) {
  const Text path = workspace.Export(module, objects, Edition::kFirst);
  return Measure([&] { ParseFile(path); });
}

Cost ScanExport(const Workspace& workspace, const Module& module, int objects) {
  const Text path = workspace.Export(module, objects, Edition::kFirst);
  return Measure([&] { ScanFile(path); });
}

Cost ReadPackage(const Workspace& workspace, const Module& module, int objects) {
  return LinkedPackage(workspace.Path(), workspace.ImportedModel(module, objects)).ReadPackage();
}

Cost QueryPackage(const Workspace& workspace, const Module& module, int objects) {
  return LinkedPackage(workspace.Path(), workspace.ImportedModel(module, objects)).QueryBare();
}

Cost RunScript(const Workspace& workspace, const Module&, int objects) {
  return RunExportScript(workspace, objects);
}

const std::vector<Phase>& Phases() {
  static const Sizes kAll = {{1'000, 5}, {10'000, 5}, {100'000, 5}};
  static const Sizes kSlow = {{1'000, 5}, {10'000, 3}, {100'000, 1}};
  static const Sizes kTwenty = {{2'000, 5}, {20'000, 5}};
  static const Sizes kLevels = {{3'000, 5}, {30'000, 5}};
  static const std::vector<Phase> phases = {
      {"load the export", kRequirements, kAll, LoadExport, ParseExport, ScanExport},
      {"import, from empty", kRequirements, kSlow, ImportFromEmpty},
      {"read the package", kRequirements, kAll, ReadPackage, QueryPackage},
      {"import, nothing changed", kRequirements, kAll, ImportUnchanged},
      {"import, 1 % changed", kRequirements, kAll, ImportChanged},
      {"wide: load", kWide, kTwenty, LoadExport, ParseExport, ScanExport},
      {"wide: nothing changed", kWide, kTwenty, ImportUnchanged},
      {"flat: load", kFlat, {{10'000, 5}, {100'000, 5}}, LoadExport, ParseExport, ScanExport},
      {"flat: from empty", kFlat, {{10'000, 1}, {100'000, 1}}, ImportFromEmpty},
      {"flat: nothing changed", kFlat, {{10'000, 5}, {100'000, 3}}, ImportUnchanged},
      {"deep: load", kDeep, kLevels, LoadExport, ParseExport, ScanExport},
      {"deep: from empty", kDeep, {{3'000, 1}, {30'000, 1}}, ImportFromEmpty},
      {"deep: nothing changed", kDeep, kLevels, ImportUnchanged},
      {"one value: load", kOneLong, {{10'000'000, 5}, {100'000'000, 5}}, LoadExport, ParseExport, ScanExport},
      {"export script", kRequirements, {{1'000, 5}, {10'000, 3}}, RunScript},
  };
  return phases;
}

/// Ours and the bare work take turns, so that whatever else the machine does falls on both.
void MeasurePhase(benchmark::State& state, const Phase& phase, const Workspace& workspace,
                  std::vector<Result>& results) {
  const int objects = static_cast<int>(state.range(0));
  std::vector<Cost> ours, bare, scan;
  const auto measure = [&](const Run& run, std::vector<Cost>& costs) {
    if (run) costs.push_back(InChild([&] { return run(workspace, phase.of, objects); }));
  };
  for ([[maybe_unused]] auto _ : state) {
    measure(phase.bare_scan, scan);
    measure(phase.bare, bare);
    measure(phase.ours, ours);
    state.SetIterationTime(ours.back().seconds);
  }
  const auto median = [](std::vector<Cost>& costs) {
    return costs.empty() ? std::optional<Cost>() : Median(std::move(costs));
  };
  const Result& result =
      results.emplace_back(Result{phase.name, objects, *median(ours), median(bare), median(scan)});
  state.counters["calls"] = static_cast<double>(result.ours.calls);
  state.counters["writes"] = static_cast<double>(result.ours.writes);
  state.counters["peak_MB"] = result.ours.peak_mb;
}

void RegisterPhases(const Workspace& workspace, std::vector<Result>& results) {
  for (const Phase& phase : Phases()) {
    for (const Size& size : phase.of_modules) {
      benchmark::RegisterBenchmark(
          phase.name.c_str(),
          [&](benchmark::State& state) { MeasurePhase(state, phase, workspace, results); })
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
