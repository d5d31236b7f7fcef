// The cost of a query, as ratios of two things that are timed in turn, most of them with a bound.
// Prints a table, or JSON.
//
//   bounds_benchmark [--json] [--check] [--tolerance PERCENT] [--cpu] [--size PACKAGES]
//                    [--pairs PAIRS] [--row NUMBER] [--program FILE]
//
// --check fails when a ratio is over its bound by more than the tolerance, 10 % by default.
// --cpu counts processor time in place of the clock's, for a machine that does other work as well.
// --program also measures querypackage-cli, as FILE, always in processor time.
// --size takes the place of 10,000 packages, and all other sizes shrink or grow with it.
#include <LogSettings.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "benchmark_query.h"
#include "hostile_folders.h"
#include "paired_timing.h"
#include "program_time.h"

namespace Vornik::Benchmarks {
namespace {

using Results = QueryPackageImp::Results;

struct Options {
  std::size_t size = 10'000;
  std::size_t pairs = 15;
  std::size_t row = 0;  // 0: all
  std::string program;  // empty: its rows are left out
  bool json = false;
  bool check = false;
  double tolerance = 10;  // percent of a bound
};

constexpr double noBound = 0;

struct Row {
  std::string what;
  double ratio = 0;
  double bound = noBound;
};

bool IsOver(const Row& row, double tolerance) {
  return row.bound != noBound && row.ratio > row.bound * (1 + tolerance / 100);
}

class Bounds {
 public:
  Bounds(std::string program, const Options& options)
      : program_(std::move(program)), options_(options) {}

  std::vector<Row> Run() {
    const std::function<void()> groups[] = {[this] { QueryAgainstLoading(); },
                                            [this] { GrowthOfQuery(); },
                                            [this] { Packs(); },
                                            [this] { GrowthOfFilters(); },
                                            [this] { Supersede(); },
                                            [this] { IdLists(); },
                                            [this] { PeakMemory(); },
                                            [this] { Logging(); },
                                            [this] { SecondQuery(); },
                                            [this] { HostileFolders(); },
                                            [this] { Program(); },
                                            [this] { GrowthOfProgram(); },
                                            [this] { MachinesOfMatrix(); },
                                            [this] { RefusedPackages(); }};
    std::size_t number = 0;
    for (const auto& group : groups) {
      if (++number == options_.row || options_.row == 0) group();
    }
    return std::move(rows_);
  }

 private:
  void Add(std::string what, double ratio, double bound) {
    rows_.push_back({std::move(what), ratio, bound});
  }

  void Add(std::string what, const PairedTimes& times, double bound) {
    what += fmt::format(" ({:.2f} ms / {:.2f} ms)", times.measured * 1e3, times.reference * 1e3);
    Add(std::move(what), times.measured / times.reference, bound);
  }

  template <typename Measured, typename Reference>
  PairedTimes Time(const Measured& measured, const Reference& reference) const {
    return TimePairs(options_.pairs, measured, reference);
  }

  // Until RunQuery returns: the object's and the vector's contents are freed afterwards.
  static double TimeQuery(const std::string& folder) {
    std::optional<FreshQuery> query;
    return TimeOf([&] { query.emplace(folder); });
  }

  static double TimeLoading(const std::string& folder) {
    return TimeOf([&folder] { LoadFolder(folder); });
  }

  void QueryAgainstLoading() {
    const TemporaryRepository repository(options_.size);
    const std::string folder = repository.Folder();
    Add("whole query / TinyXML loading the same files",
        Time([&] { return TimeQuery(folder); }, [&] { return TimeLoading(folder); }), 1.1);
  }

  void GrowthOfQuery() {
    const std::size_t few = options_.size / 2;
    const std::size_t many = few * 20;
    const TemporaryRepository small(few);
    const TemporaryRepository large(many);
    const auto perPackage = [](const TemporaryRepository& repository, std::size_t packages) {
      return TimeQuery(repository.Folder()) / static_cast<double>(packages);
    };
    Add(fmt::format("a package of {} / a package of {}", many, few),
        Time([&] { return perPackage(large, many); }, [&] { return perPackage(small, few); }),
        1.15);
  }

  void Packs() {
    const TemporaryRepository repository(options_.size, 10, options_.size / 10);
    const std::string folder = repository.Folder();
    Add("with 10 packs that list all packages again / loading the same files",
        Time([&] { return TimeQuery(folder); }, [&] { return TimeLoading(folder); }), 1.1);
  }

  // One filter on records in memory, from the state in which it starts in a query.
  class FilterRun {
   public:
    using Filter = void (QueryPackageImp::*)(Results&);

    explicit FilterRun(std::size_t packages, DriverShape shape = DriverShape::Families) {
      Hold(query_, packages, shape);
      query_.CreateQueryPackageResults(built_);
    }

    double operator()(Filter filter) {
      Results results = built_;
      return TimeOf([&] { (query_.*filter)(results); });
    }

    QueryPackageImp& Query() { return query_; }

   private:
    QueryPackageImp query_;
    Results built_;
  };

  void GrowthOfFilters() {
    const std::pair<const char*, FilterRun::Filter> filters[] = {
        {"duplicate", &QueryPackageImp::FilterDuplicate},
        {"platform", &QueryPackageImp::FilterPlatform},
        {"kovu", &QueryPackageImp::FilterKovu},
        {"sep", &QueryPackageImp::FilterSep},
        {"supersede", &QueryPackageImp::FilterSupersede},
        {"include ids", &QueryPackageImp::FilterIncludeId},
        {"exclude ids", &QueryPackageImp::FilterExcludeId},
        {"update type", &QueryPackageImp::FilterUpdateType}};
    FilterRun small(options_.size);
    FilterRun large(options_.size * 10);
    for (const auto& [name, filter] : filters) {
      Add(fmt::format("{} filter, ten times the records", name),
          Time([&, f = filter] { return large(f); }, [&, f = filter] { return small(f); }), 25);
    }
  }

  void Supersede() {
    const std::pair<const char*, DriverShape> shapes[] = {
        {"distinct versions", DriverShape::OneAllDistinct},
        {"equal versions", DriverShape::OneAllEqual},
        {"ten versions", DriverShape::OneOfTen}};
    for (const auto& [name, shape] : shapes) {
      FilterRun run(options_.size * 2, shape);
      Add(fmt::format("supersede, one driver, {} / duplicate filter", name),
          Time([&] { return run(&QueryPackageImp::FilterSupersede); },
               [&] { return run(&QueryPackageImp::FilterDuplicate); }),
          noBound);
    }
  }

  std::vector<std::string> Ids(std::size_t count) const {
    std::vector<std::string> ids;
    for (std::size_t i = 0; i < count; ++i) ids.push_back(CodeOf(i * 3));
    return ids;
  }

  void IdLists() {
    FilterRun run(options_.size * 2);
    const auto both = [&](std::size_t ids) {
      run.Query().includePackageIds = run.Query().excludePackageIds = Ids(ids);
      return run(&QueryPackageImp::FilterIncludeId) + run(&QueryPackageImp::FilterExcludeId);
    };
    Add(fmt::format("id filters with {} ids / with 10", options_.size),
        Time([&] { return both(options_.size); }, [&] { return both(10); }), noBound);
  }

  // In a separate process, whose memory nothing else has used.
  void PeakMemory() {
    const TemporaryRepository repository(options_.size);
    std::size_t text = 0;
    for (std::size_t i = 0; i < options_.size; ++i) text += DescriptorOf(i).size();
    Add("peak memory / bytes of descriptor text", PeakOf(repository) / static_cast<double>(text),
        2.5);
  }

  // In bytes.
  double PeakOf(const TemporaryRepository& repository) const {
    const std::string command = fmt::format("'{}' --peak '{}'", program_, repository.Folder());
    std::FILE* child = popen(command.c_str(), "r");
    if (child == nullptr) throw std::runtime_error("the child process does not start");
    unsigned long long kibibytes = 0;
    const int fields = std::fscanf(child, "%llu", &kibibytes);
    if (pclose(child) != 0 || fields != 1) throw std::runtime_error("the child process failed");
    return static_cast<double>(kibibytes) * 1024;
  }

  // Each beside a sound folder of the same size, 10 MB by default. Driver groups that overlap are
  // the documented exception.
  void HostileFolders() {
    const std::size_t bytes = options_.size * 1'000;
    const TemporaryRepository sound(bytes / DescriptorOf(0).size());
    SetMinLogLevel(0);
    for (const Testing::HostileFolder& hostile : Testing::HostileFolders()) {
      const TemporaryRepository repository(1);  // a query without any package does not complete
      std::size_t written = 0;
      for (const auto& [name, text] : hostile.make(bytes)) {
        std::ofstream(repository.Folder() + '/' + name, std::ios::binary) << text;
        written += text.size();
      }
      const bool isException = hostile.name == std::string("driver-groups");
      Add(fmt::format("{}, query / loading a sound folder of that size", hostile.name),
          TimePairs(
              std::min<std::size_t>(options_.pairs, 3),
              [&] { return TimeQuery(repository.Folder()); },
              [&] { return TimeLoading(sound.Folder()); }),
          isException ? noBound : 20);
      Add(fmt::format("{}, peak memory / bytes", hostile.name),
          PeakOf(repository) / static_cast<double>(written), 120);
    }
    SetMinLogLevel(1);
  }

  void Logging() {
    const TemporaryRepository repository(options_.size);
    const std::string folder = repository.Folder();
    const auto at = [&folder](unsigned int threshold) {
      SetMinLogLevel(threshold);
      return TimeQuery(folder);
    };
    std::size_t records = 0;
    LogToFunction([&records](const LogRecord&) { ++records; });
    const PairedTimes times = Time([&] { return at(3); }, [&] { return at(0); });
    LogToStandardError();
    SetMinLogLevel(1);
    if (records == 0) throw std::runtime_error("nothing was logged");
    Add("log threshold 3 into a log that counts / threshold 0", times, 1.3);
  }

  void SecondQuery() {
    const TemporaryRepository repository(options_.size);
    std::vector<double> ratios;
    for (std::size_t i = 0; i < options_.pairs; ++i) {
      QueryPackageImp query;
      SetUp(query);
      query.xmlPackageFolder = repository.Folder();
      Results results;
      const double first = TimeOf([&] { query.RunQuery(results); });
      ratios.push_back(TimeOf([&] { query.RunQuery(results); }) / first);
    }
    Add("second query on one object / the first", MedianOf(std::move(ratios)), 2.2);
  }

  struct Subcommand {
    std::string name;
    std::vector<std::string> arguments;  // but for the folder
    double bound;
  };

  // The package that is explained: the machine has its type, but another operating system, and with
  // other settings it is ranked with 99 others.
  static std::vector<Subcommand> Subcommands() {
    const auto with = [](std::vector<std::string> arguments, const char* machine) {
      for (const std::string& more : {std::string("--machine-type"), std::string(machine),
                                      std::string("--os"), fmt::format("{}", operatingSystem),
                                      std::string("--arch"), fmt::format("{}", architecture)}) {
        arguments.push_back(more);
      }
      return arguments;
    };
    return {{"query --format table", with({"query", "--format", "table"}, machineType), 2.0},
            {"query --format json", with({"query", "--format", "json"}, machineType), 2.5},
            {"lint", {"lint"}, 3},
            {"explain", with({"explain", "--package", CodeOf(37)}, otherMachineType), 3.5}};
  }

  double TimeProgram(const Subcommand& subcommand, const TemporaryRepository& repository) const {
    std::vector<std::string> command{options_.program};
    command.insert(command.end(), subcommand.arguments.begin(), subcommand.arguments.end());
    command.push_back(repository.Folder());
    return ProcessorTimeOf(command);
  }

  // The library's query of the same settings as the subcommands'.
  static double TimePlainQuery(const TemporaryRepository& repository) {
    QueryPackageImp query;
    query.xmlPackageFolder = repository.Folder();
    query.machineType = machineType;
    query.osValue = static_cast<OsValue>(operatingSystem);
    query.arcValue = static_cast<ArcValue>(architecture);
    Results results;
    return TimeOf([&] { query.RunQuery(results); });
  }

  void Program() {
    if (options_.program.empty()) return;
    const Clock before = std::exchange(timingClock, Clock::Processor);
    const TemporaryRepository repository(options_.size, DriverShape::Hundreds);
    for (const Subcommand& subcommand : Subcommands()) {
      Add(subcommand.name + " / RunQuery",
          Time([&] { return TimeProgram(subcommand, repository); },
               [&] { return TimePlainQuery(repository); }),
          subcommand.bound);
    }
    timingClock = before;
  }

  void GrowthOfProgram() {
    if (options_.program.empty()) return;
    const std::size_t many = options_.size * 5;
    const TemporaryRepository small(options_.size, DriverShape::Hundreds);
    const TemporaryRepository large(many, DriverShape::Hundreds);
    for (const Subcommand& subcommand : Subcommands()) {
      const auto perPackage = [&](const TemporaryRepository& repository, std::size_t packages) {
        return TimeProgram(subcommand, repository) / static_cast<double>(packages);
      };
      Add(fmt::format("{}, a package of {} / of {}", subcommand.name, many, options_.size),
          TimePairs(
              std::min<std::size_t>(options_.pairs, 3), [&] { return perPackage(large, many); },
              [&] { return perPackage(small, options_.size); }),
          1.25);
    }
  }

  // A kind of machine that each package is for: their ordered lists name any architecture.
  void MachinesOfMatrix() {
    if (options_.program.empty()) return;
    const Clock before = std::exchange(timingClock, Clock::Processor);
    const TemporaryRepository repository(options_.size, DriverShape::Hundreds);
    for (std::size_t i = 0; i < options_.size; ++i) {
      std::string text = DescriptorOf(i, DriverShape::Hundreds);
      const std::string named = fmt::format("<VALUE>{}</VALUE>", architecture);
      for (std::size_t at = 0; (at = text.find(named, at)) != std::string::npos;) {
        text.replace(at, named.size(), "<VALUE>0</VALUE>");
      }
      std::ofstream(fmt::format("{}/{}.xml", repository.Folder(), CodeOf(i))) << text;
    }
    constexpr std::size_t further = 20;
    const double none = MedianTimeOfMatrix(repository, 1);
    const double all = MedianTimeOfMatrix(repository, 1 + further);
    std::vector<double> queries;
    for (std::size_t i = 0; i < options_.pairs; ++i) queries.push_back(TimePlainQuery(repository));
    Add("a further kind of machine of matrix / RunQuery",
        {(all - none) / static_cast<double>(further), MedianOf(std::move(queries))}, 0.12);
    timingClock = before;
  }

  // With next to no output: the Kovu filter refuses every package.
  double MedianTimeOfMatrix(const TemporaryRepository& repository, std::size_t kinds) const {
    const std::string machines = repository.Folder() + "/machines.csv";
    std::ofstream file(machines);
    file << "machine_type,os,arch\n";
    for (std::size_t i = 1; i <= kinds; ++i) {
      file << fmt::format("{},{},{}\n", machineType, operatingSystem, i);
    }
    file.close();
    const Subcommand matrix{
        "matrix",
        {"matrix", "--machines", machines, "--format", "jsonl", "--only-offered"},
        noBound};
    std::vector<double> times;
    for (std::size_t i = 0; i < options_.pairs; ++i)
      times.push_back(TimeProgram(matrix, repository));
    return MedianOf(std::move(times));
  }

  // Three fifths of the packages are refused, by their update type.
  void RefusedPackages() {
    if (options_.program.empty()) return;
    const std::size_t few = std::max<std::size_t>(options_.size / 20, 100);
    const std::size_t many = few * 2;
    const TemporaryRepository small(few, DriverShape::Hundreds);
    const TemporaryRepository large(many, DriverShape::Hundreds);
    const auto perPackage = [&](const TemporaryRepository& repository, std::size_t packages) {
      const double time = ProcessorTimeOf(
          {options_.program, "explain", repository.Folder(), "--refused", "--machine-type",
           machineType, "--os", fmt::format("{}", operatingSystem), "--arch",
           fmt::format("{}", architecture), "--no-kovu-filter", "--no-supersede-filter",
           "--update-type", "0", "--update-type", "1"});
      return time / static_cast<double>(packages);
    };
    Add(fmt::format("explain --refused, a package of {} / of {}", many, few),
        TimePairs(
            std::min<std::size_t>(options_.pairs, 3), [&] { return perPackage(large, many); },
            [&] { return perPackage(small, few); }),
        1.25);
  }

  std::string program_;
  Options options_;
  std::vector<Row> rows_;
};

unsigned long long PeakKibibytes() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    unsigned long long kibibytes = 0;
    if (std::sscanf(line.c_str(), "VmHWM: %llu kB", &kibibytes) == 1) return kibibytes;
  }
  throw std::runtime_error("the kernel does not report the peak memory");
}

int PrintPeak(const std::string& folder) {
  SetMinLogLevel(0);
  const unsigned long long before = PeakKibibytes();
  const FreshQuery query(folder);
  std::cout << PeakKibibytes() - before << '\n';
  return EXIT_SUCCESS;
}

void PrintTable(const std::vector<Row>& rows) {
  std::cout << fmt::format("{:>8}  {:>6}\n", "ratio", "bound");
  for (const Row& row : rows) {
    const std::string bound = row.bound != noBound ? fmt::format("{:.2f}", row.bound) : "";
    std::cout << fmt::format("{:8.3f}  {:>6}  {}{}\n", row.ratio, bound, row.what,
                             IsOver(row, 0) ? "  OVER" : "");
  }
}

void PrintJson(const std::vector<Row>& rows) {
  nlohmann::json all = nlohmann::json::array();
  for (const Row& row : rows) {
    nlohmann::json one{{"what", row.what}, {"ratio", row.ratio}};
    if (row.bound != noBound) one["bound"] = row.bound;
    all.push_back(std::move(one));
  }
  std::cout << all.dump(2) << '\n';
}

// Names the rows that are over their bounds by more than the tolerance.
int Check(const std::vector<Row>& rows, double tolerance) {
  std::size_t over = 0;
  for (const Row& row : rows) {
    if (!IsOver(row, tolerance)) continue;
    ++over;
    std::cerr << fmt::format("over its bound by more than {} %: {:.3f} > {:.2f}, {}\n", tolerance,
                             row.ratio, row.bound, row.what);
  }
  return over == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    const auto value = [&]() -> const std::string& {
      if (std::next(argument) == arguments.end()) throw std::invalid_argument(*argument);
      return *++argument;
    };
    if (*argument == "--json") {
      options.json = true;
    } else if (*argument == "--check") {
      options.check = true;
    } else if (*argument == "--cpu") {
      timingClock = Clock::Processor;
    } else if (*argument == "--tolerance") {
      options.tolerance = std::stod(value());
    } else if (*argument == "--size") {
      options.size = std::stoul(value());
    } else if (*argument == "--pairs") {
      options.pairs = std::stoul(value());
    } else if (*argument == "--program") {
      options.program = value();
    } else if (*argument == "--row") {
      options.row = std::stoul(value());
    } else {
      throw std::invalid_argument(*argument);
    }
  }
  return options;
}

int Main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (arguments.size() == 2 && arguments.front() == "--peak") return PrintPeak(arguments.back());
  const Options options = ParseOptions(arguments);
  const std::vector<Row> rows = Bounds(argv[0], options).Run();
  options.json ? PrintJson(rows) : PrintTable(rows);
  return options.check ? Check(rows, options.tolerance) : EXIT_SUCCESS;
}

}  // namespace
}  // namespace Vornik::Benchmarks

int main(int argc, char** argv) {
  try {
    return Vornik::Benchmarks::Main(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "bounds_benchmark: " << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
