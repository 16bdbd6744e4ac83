#pragma once
// Files with the same content, found with as little reading as can be. Private to the disk sources.

#include <string>
#include <vector>

#include "core/disk/DiskAnalyzer.h"

namespace ambrel {

struct DuplicateCandidate {
  const DiskItem* node;
  std::string path;
};

// All but the oldest copy of each group of equal files, larger ones first. No byte of a file is read twice, two files
// are read at a time, and no more than 8 MiB of them are held. Small files are compared by their bytes. Large ones are
// compared by digests of `window` bytes at either end, then by the bytes between, or by a digest of those where many
// files are alike or have holes. Files whose blocks belong to another file as well are left out, since moving them
// frees nothing: clones altogether, a file with several names (hard links) as something to move. Throws Cancelled.
std::vector<CleanupItem> findDuplicates(const std::vector<DuplicateCandidate>& candidates, std::int64_t window,
                                        const AnalysisControl& control);

}  // namespace ambrel
