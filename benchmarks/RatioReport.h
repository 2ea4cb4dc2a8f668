#pragma once

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <iostream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

/// Runs the registered benchmarks and prints how each compares with its peer.
///
/// Benchmarks are named "workload/variant"; the peer is the variant named "peer_...", or the workload's first
/// one where none is. Times on a busy machine wander together, so repetitions of all variants are interleaved
/// at random and the medians of one run are compared; a ratio below 1 is faster than the peer. Options of the
/// command line, such as
/// --benchmark_filter=rotated, come after the defaults and so win.
class RatioReport : public benchmark::ConsoleReporter {
public:
    /// For benchmarks that measure by themselves.
    static double threadSeconds() {
        timespec now{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
    }
    template <class Report = RatioReport>
    static int run(int argc, char** argv) {
        std::vector<std::string> texts{argv[0], "--benchmark_enable_random_interleaving=true",
                                       "--benchmark_repetitions=9", "--benchmark_min_time=0.05"};
        texts.insert(texts.end(), argv + 1, argv + argc);
        std::vector<char*> arguments;
        for (std::string& text : texts) {
            arguments.push_back(text.data());
        }
        int count = static_cast<int>(arguments.size());
        benchmark::Initialize(&count, arguments.data());
        if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
            return 1;
        }
        Report report;
        benchmark::RunSpecifiedBenchmarks(&report);
        benchmark::Shutdown();
        return 0;
    }

    bool ReportContext(const Context& context) override {
        // Context and the single repetitions say little beside the table: only the machine's warnings are
        // kept.
        PrintBasicContext(&std::cerr, context);
        return true;
    }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                // A benchmark that measures by itself says so in its name, and gives real time.
                const bool manual = run.run_name.time_type == "manual_time";
                Variant& variant = variantOf(run.run_name.function_name);
                variant.times.push_back(manual ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime());
                const auto rate = run.counters.find("bytes_per_second");
                if (rate != run.counters.end()) {
                    variant.rates.push_back(rate->second / 1e6);
                }
            }
        }
    }
    void Finalize() override {
        std::printf("%-28s %-22s %14s %10s\n", "workload", "variant", "median [ns]", "ratio");
        for (const Workload& workload : m_workloads) {
            const double peer = median(peerOf(workload).times);
            for (const Variant& variant : workload.variants) {
                const double time = median(variant.times);
                std::printf("%-28s %-22s %14.1f %10.3f", workload.name.c_str(), variant.name.c_str(), time,
                            time / peer);
                if (!variant.rates.empty()) {
                    std::printf(" %10.0f MB/s", median(variant.rates));
                }
                std::printf("\n");
            }
        }
    }

protected:
    struct Variant {
        std::string name;
        std::vector<double> times;
        std::vector<double> rates{}; ///< Of those that tell how many bytes they take, in MB/s.
    };
    struct Workload {
        std::string name;
        std::vector<Variant> variants;
    };

    const std::vector<Workload>& workloads() const { return m_workloads; }
    static double median(std::vector<double> times) {
        const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
        std::nth_element(times.begin(), middle, times.end());
        return *middle;
    }

private:
    template <typename Named>
    static Named& named(std::vector<Named>& list, const std::string& name) {
        const auto found =
            std::find_if(list.begin(), list.end(), [&](const Named& item) { return item.name == name; });
        return found != list.end() ? *found : list.emplace_back(Named{name, {}});
    }
    Variant& variantOf(const std::string& name) {
        const std::size_t slash = name.find('/');
        Workload& workload = named(m_workloads, name.substr(0, slash));
        return named(workload.variants, slash == std::string::npos ? name : name.substr(slash + 1));
    }
    static const Variant& peerOf(const Workload& workload) {
        const auto found =
            std::find_if(workload.variants.begin(), workload.variants.end(),
                         [](const Variant& variant) { return variant.name.rfind("peer_", 0) == 0; });
        return found != workload.variants.end() ? *found : workload.variants.front();
    }
    std::vector<Workload> m_workloads;
};
