#pragma once
// The table quicksort: last element as pivot, the smaller side first, bounds 0 and 0 meaning the
// whole array (also in the recursive calls). Its result, including the order it gives records
// with equal keys, is that of the procedure with its rescans from lo and hi after every swap;
// the scans here simply go on from where they stood, which reaches the same places.

#include <utility>
#include <vector>

namespace parlane {

template <typename T, typename Compare>
void QuickSortByRule(std::vector<T>& a, int& lo, int& hi, Compare compare) {
    for (;;) {
        if (lo == 0 && hi == 0) {
            if (a.empty()) return;
            hi = static_cast<int>(a.size()) - 1;
        }
        if (lo > hi) return;
        if (hi - lo == 1) {
            if (compare(a[static_cast<std::size_t>(lo)], a[static_cast<std::size_t>(hi)]) > 0)
                std::swap(a[static_cast<std::size_t>(lo)], a[static_cast<std::size_t>(hi)]);
            return;
        }
        const T pivot = a[static_cast<std::size_t>(hi)];
        int i = lo, j = hi;
        for (;;) {
            while (i < j && compare(a[static_cast<std::size_t>(i)], pivot) <= 0) ++i;
            while (j > i && compare(a[static_cast<std::size_t>(j)], pivot) >= 0) --j;
            if (i >= j) break;
            std::swap(a[static_cast<std::size_t>(i)], a[static_cast<std::size_t>(j)]);
        }
        std::swap(a[static_cast<std::size_t>(i)], a[static_cast<std::size_t>(hi)]);
        // Recurse into the part sorted first; the second part becomes the next pass of the loop.
        int firstLo, firstHi, secondLo, secondHi;
        if (i - lo < hi - i) {
            firstLo = lo, firstHi = i - 1, secondLo = i + 1, secondHi = hi;
        } else {
            firstLo = i + 1, firstHi = hi, secondLo = lo, secondHi = i - 1;
        }
        QuickSortByRule(a, firstLo, firstHi, compare);
        lo = secondLo;
        hi = secondHi;
    }
}

}  // namespace parlane
