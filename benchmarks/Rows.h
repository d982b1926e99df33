#pragma once

#include "benchmarks/BenchOptions.h"
#include "benchmarks/LibraryFiles.h"
#include "benchmarks/Measurement.h"

#include <algorithm>
#include <vector>

// Each function measures one row, which may be several lines of the table. [GUI thread]
std::vector<Measurement> measureColdScan(const BenchOptions& options);
std::vector<Measurement> measureRescan(const BenchOptions& options);
std::vector<Measurement> measureGetSettings(const BenchOptions& options);
std::vector<Measurement> measureSearches(const BenchOptions& options);
std::vector<Measurement> measureModel(const BenchOptions& options);
std::vector<Measurement> measureStall(const BenchOptions& options);
std::vector<Measurement> measureImportFiles(const BenchOptions& options);
std::vector<Measurement> measureImportFolder(const BenchOptions& options);
std::vector<Measurement> measureExportAll(const BenchOptions& options);
std::vector<Measurement> measureDeleteGroup(const BenchOptions& options);
std::vector<Measurement> measureWizardMenu(const BenchOptions& options);
std::vector<Measurement> measureStart(const BenchOptions& options);
std::vector<Measurement> measureLanguageSwitch(const BenchOptions& options);
std::vector<Measurement> measureRecord(const BenchOptions& options);
std::vector<Measurement> measureAddressCheck(const BenchOptions& options);
std::vector<Measurement> measureWizard(const BenchOptions& options);
std::vector<Measurement> measureTree(const BenchOptions& options);
std::vector<Measurement> measureGrowth(const BenchOptions& options);

// What measureGrowth() runs in a process of its own: scans the library `folder` for the first time and prints what it
// took as numbers.
void printGrowth(const QString& folder);

// What measureStart() runs in a process of its own: printStart() of the settings area.
void printOurStart(const QString& begun);

// A library as users with many types have it.
inline LibraryFiles usualLibrary(const BenchOptions& options)
{
    return {options.types(10'000), 40, 2'000, 60'000};
}

// A library of any size. Its files are small: what is to be seen is the work for each type, not the hashing, which
// only grows with the bytes.
inline LibraryFiles lightLibrary(int types)
{
    return {types, std::max(1, types / 250), 256, 1024};
}
