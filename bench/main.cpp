// Runs the benchmarks and adds a table of ratios to Google Benchmark's own: ours beside each other
// contender of its group, from the medians of this run. Benchmarks are named GROUP/CONTENDER.
//
//   --ratios=FILE  writes the ratios there, too: a line "GROUP|CONTENDER|RATIO" for each
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iomanip>
#include <map>
#include <string>
#include <vector>

namespace {

class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(std::vector<Run> const& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (Run const& run : runs) {
            if (!run.error_occurred && run.aggregate_name == "median") {
                std::string const& name = run.run_name.function_name;
                std::size_t const slash = name.rfind('/');
                m_medians[run.family_index] = {name.substr(0, slash), name.substr(slash + 1),
                                               Time(run)};
            }
        }
    }

    void Finalize() override {
        std::printf("\nTime of ours / time of the other, medians of this run:\n");
        for (auto const& [otherIndex, other] : m_medians) {
            for (auto const& [oursIndex, ours] : m_medians) {
                if (ours.contender == "ours" && ours.group == other.group &&
                    oursIndex != otherIndex) {
                    double const ratio = ours.time / other.time;
                    std::printf("%-26s %-18s %6.2f\n", other.group.c_str(), other.contender.c_str(),
                                ratio);
                    m_ratios << other.group << '|' << other.contender << '|' << std::fixed
                             << std::setprecision(2) << ratio << '\n';
                }
            }
        }
    }
    void WriteRatiosTo(std::string const& file) { m_ratios.open(file); }

  private:
    // Processor time, which other programs disturb least, unless the benchmark asks for the other.
    static double Time(Run const& run) {
        bool const real = run.run_name.time_type == "real_time";
        return real ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
    }

    struct Median {
        std::string group;
        std::string contender;
        double time = 0;
    };
    std::map<std::int64_t, Median> m_medians; // in the order of registration
    std::ofstream m_ratios;                   // open when they are wanted
};

} // namespace

int main(int argc, char** argv) {
    RatioReporter reporter;
    std::string const option = "--ratios=";
    if (argc > 1 && std::string(argv[1]).starts_with(option)) {
        reporter.WriteRatiosTo(argv[1] + option.size());
        argv[1] = argv[0];
        ++argv;
        --argc;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
}
