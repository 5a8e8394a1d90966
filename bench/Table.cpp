#include "Table.h"

#include <algorithm>
#include <iomanip>
#include <iostream>

namespace Bench {
namespace {

/// A cell of the table; empty without a value.
void PrintCell(double value, int places)
{
    std::cout << " | " << std::setw(10);
    if (value != 0)
        std::cout << std::fixed << std::setprecision(places) << value;
    else
        std::cout << "";
}

}  // namespace

void CTable::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration)
            continue;
        const std::string name = run.run_name.function_name;
        const auto row = std::ranges::find(m_rows, name, &SRow::name);
        if (row == m_rows.end())
            continue;
        const double rate = run.counters.at("octets").value * static_cast<double>(run.iterations)
                            / run.cpu_accumulated_time;
        row->rate = std::max(row->rate, rate);
        row->counters = run.counters;
    }
}

void CTable::Print(const std::string& floor) const
{
    std::cout << "| case                                |       MB/s |      ratio |       mark"
                 " | allocations per element | heap per octet |\n"
                 "|---|---:|---:|---:|---:|---:|\n";
    for (const SRow& row : m_rows) {
        const std::string size = row.name.substr(row.name.rfind('/') + 1);
        const auto base = std::ranges::find(m_rows, floor + "/" + size, &SRow::name);
        const auto counter = [&](const char* name) {
            const auto found = row.counters.find(name);
            return found != row.counters.end() ? found->second.value : 0.0;
        };
        std::cout << "| " << std::left << std::setw(35) << row.name << std::right;
        PrintCell(row.rate / 1e6, 1);
        PrintCell(base != m_rows.end() ? row.rate / base->rate : 0, 2);
        PrintCell(counter("mark"), 2);
        PrintCell(counter("allocations"), 2);
        PrintCell(counter("heap"), 2);
        std::cout << " |\n";
    }
}

}  // namespace Bench
