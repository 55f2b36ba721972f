// The table sort must give exactly what the procedure with its rescans gives, equal keys
// included; the transcription below keeps those rescans.
#include <gtest/gtest.h>

#include <random>

#include "store/message_queue.h"

namespace parlane {
namespace {

void Swap(MessageTable& a, int x, int y) {
    const QueuedMessage t = a[static_cast<std::size_t>(x)];
    a[static_cast<std::size_t>(x)] = a[static_cast<std::size_t>(y)];
    a[static_cast<std::size_t>(y)] = t;
}

void LiteralSort(MessageTable& a, int& lo, int& hi) {
    if (lo == 0 && hi == 0) {
        lo = 0;
        hi = static_cast<int>(a.size()) - 1;
    }
    if (lo > hi) return;
    const auto at = [&](int k) -> QueuedMessage& { return a[static_cast<std::size_t>(k)]; };
    if (hi - lo == 1) {
        if (CompareByProviderIndex(at(lo), at(hi)) > 0) Swap(a, lo, hi);
        return;
    }
    const QueuedMessage pivot = at(hi);
    int i, j;
    do {
        i = lo;
        j = hi;
        while (i < j && CompareByProviderIndex(at(i), pivot) <= 0) ++i;
        while (j > i && CompareByProviderIndex(at(j), pivot) >= 0) --j;
        if (i < j) Swap(a, i, j);
    } while (i < j);
    Swap(a, i, hi);
    int l1 = lo, h1 = i - 1, l2 = i + 1, h2 = hi;
    if (i - lo < hi - i) {
        LiteralSort(a, l1, h1);
        LiteralSort(a, l2, h2);
    } else {
        LiteralSort(a, l2, h2);
        LiteralSort(a, l1, h1);
    }
}

TEST(SortSendBuffer, GivesExactlyTheResultOfTheProcedureAsWritten) {
    std::mt19937 random(20261122);
    for (int round = 0; round < 3000; ++round) {
        const int size = 1 + static_cast<int>(random() % 60);
        const int centres = 1 + static_cast<int>(random() % 6);
        MessageTable table(static_cast<std::size_t>(size));
        for (int k = 0; k < size; ++k) {
            table[static_cast<std::size_t>(k)].MessageNumber = k;
            table[static_cast<std::size_t>(k)].ProviderIndex =
                static_cast<int>(random() % static_cast<unsigned>(centres));
        }
        // Usually with the lowest key at 0, as the run's marker is; sometimes not.
        if (round % 4 != 0) table[0].ProviderIndex = 0;
        MessageTable expected = table;
        int lo = 0, hi = 0, elo = 0, ehi = 0;
        LiteralSort(expected, elo, ehi);
        SortSendBuffer(table, lo, hi);
        ASSERT_EQ(table, expected) << "round " << round;
        for (std::size_t k = 1; k < table.size(); ++k)
            ASSERT_LE(table[k - 1].ProviderIndex, table[k].ProviderIndex);
    }
}

}  // namespace
}  // namespace parlane
