// Collects the runs of Google Benchmark into one table: the fastest of the repetitions of a case
// counts, since whatever else the machine does can only slow it down.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace Bench {

class CTable : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    /// Rows come out in the order in which they are added, whatever the order of the runs.
    void AddRow(const std::string& name) { m_rows.push_back({name, 0, {}}); }

    /// In Markdown. A run is called `case/size`, and `floor` is the case that ratios are taken to.
    void Print(const std::string& floor) const;

private:
    struct SRow {
        std::string name;
        double rate = 0;  ///< octets of text per second of processor time
        benchmark::UserCounters counters;
    };

    std::vector<SRow> m_rows;
};

}  // namespace Bench
