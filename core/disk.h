#pragma once
// Disk Doctor's logic: a folder becomes a size tree, the tree becomes findings, findings become words and moves.
//
//   DiskScanner{.minItemSize = 1'000'000}.scan(folder)      -> DiskScanResult     core/disk/DiskScanner.h
//   DiskAnalyzer{}.analyze(tree, home, runtimes, now, ...)  -> [DiskFinding]      core/disk/DiskAnalyzer.h
//   DiskAdvice::headline, summary, verdict, moveToTrash                           core/disk/DiskAdvice.h
//
// Paths are bytes as the system has them; texts that people see have invalid UTF-8 repaired.

#include "core/disk/DiskAdvice.h"
#include "core/disk/DiskAnalyzer.h"
#include "core/disk/DiskItem.h"
#include "core/disk/DiskScanner.h"
#include "core/disk/FindingSelection.h"
#include "core/disk/Findings.h"
#include "core/disk/Sunburst.h"
