// Measures the library beside its parser, and prints one table.
//
//     benchmarks [MB...]       1, 10 and 100 MB, documents of 2 kB, and values
//     benchmarks --once CASE   one case over 256 kB, once more inside MeasureOnce(), which
//                              callgrind counts; `--list` prints the cases and the octets

#include "Cases.h"
#include "Heap.h"
#include "Table.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>

namespace {

using namespace Bench;
using namespace ZqXmlLib9;

constexpr std::size_t kSmall = 2000;
constexpr std::size_t kCounted = 256'000;

/// What one run of a case allocates, and what stays of it while its result lives.
void CountHeap(const SCase& measured, const SData& data, benchmark::State& state)
{
    StartHeapCount();
    const std::shared_ptr<const void> made = measured.run(data);
    const SHeap heap = ReadHeapCount();
    StopHeapCount();
    state.counters["allocations"] =
        static_cast<double>(heap.allocations) / static_cast<double>(data.elements);
    state.counters["heap"] = static_cast<double>(heap.held) / static_cast<double>(data.text.size());
}

void MeasureDocument(std::size_t octets, const std::string& size, CTable& table)
{
    const SData data(octets);
    for (const SCase& measured : GetCases()) {
        const std::string name = measured.name + ("/" + size);
        table.AddRow(name);
        benchmark::RegisterBenchmark(name.c_str(), [&](benchmark::State& state) {
            for (auto _ : state)
                measured.run(data);
            CountHeap(measured, data, state);
            state.counters["mark"] = measured.mark;
            state.counters["octets"] = static_cast<double>(data.text.size());
        });
    }
    benchmark::RunSpecifiedBenchmarks(&table);
    benchmark::ClearRegisteredBenchmarks();
}

template <typename TStep>
void RegisterValues(const SValues& values, const char* direction, CTable& table, TStep step)
{
    const std::string name = std::string(values.name) + direction;
    table.AddRow(name);
    benchmark::RegisterBenchmark(name.c_str(), [&values, step](benchmark::State& state) {
        std::size_t units = 0;
        std::vector<ZqVariant> made;
        for (const std::u16string& text : values.texts) {
            units += text.size();
            made.emplace_back().FromString(text, values.type,
                                           CWhitespaceUtils::WhitespaceRule_Collapse);
        }
        for (auto _ : state)
            for (std::size_t i = 0; i < made.size(); ++i)
                step(values.texts[i], values.type, made[i]);
        state.counters["octets"] = static_cast<double>(units);
    });
}

void MeasureValues(CTable& table)
{
    const std::vector<SValues> all = MakeValues();
    for (const SValues& values : all) {
        RegisterValues(values, " from text", table,
                       [](const std::u16string& text, ItemType type, const ZqVariant&) {
                           ZqVariant value;
                           value.FromString(text, type, CWhitespaceUtils::WhitespaceRule_Collapse);
                           benchmark::DoNotOptimize(value);
                       });
        RegisterValues(values, " to text", table,
                       [](const std::u16string&, ItemType, const ZqVariant& value) {
                           benchmark::DoNotOptimize(value.ToString(nullptr));
                       });
    }
    benchmark::RunSpecifiedBenchmarks(&table);
    benchmark::ClearRegisteredBenchmarks();
}

/// A name that callgrind finds.
extern "C" __attribute__((noinline)) void MeasureOnce(const SCase& measured, const SData& data)
{
    measured.run(data);
}

int RunOnce(const char* name)
{
    const auto measured = std::ranges::find_if(
        GetCases(), [&](const SCase& c) { return std::strcmp(c.name, name) == 0; });
    if (measured == GetCases().end()) {
        std::cerr << "There is no case [" << name << "]\n";
        return EXIT_FAILURE;
    }
    const SData data(kCounted);
    measured->run(data);
    MeasureOnce(*measured, data);
    return EXIT_SUCCESS;
}

int Run(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--once") == 0)
        return RunOnce(argv[2]);
    if (argc == 2 && std::strcmp(argv[1], "--list") == 0) {
        for (const SCase& c : GetCases())
            std::cout << SData(kCounted).text.size() << ' ' << c.name << '\n';
        return EXIT_SUCCESS;
    }
    // The cases of a size take turns, so that a slow minute of the machine hits them alike.
    const char* flags[] = {argv[0], "--benchmark_enable_random_interleaving=true",
                           "--benchmark_repetitions=7", "--benchmark_min_time=0.05"};
    int count = static_cast<int>(std::size(flags));
    benchmark::Initialize(&count, const_cast<char**>(flags));
    std::vector<std::string> sizes(argv + 1, argv + argc);
    if (sizes.empty())
        sizes = {"1", "10", "100"};
    CTable table;
    MeasureDocument(kSmall, "2 kB", table);
    for (const std::string& size : sizes)
        MeasureDocument(std::stoul(size) * 1'000'000, size + " MB", table);
    MeasureValues(table);
    table.Print(GetCases().front().name);
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv)
{
    Register(ZQXMLLIB9_VERSION_MAJOR, ZQXMLLIB9_VERSION_MINOR);
    try {
        return Run(argc, argv);
    }
    catch (const CZqException& failure) {
        std::cerr << failure << '\n';
    }
    catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
    }
    return EXIT_FAILURE;
}
