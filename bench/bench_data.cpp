#include "bench_data.h"

#include <cstdio>
#include <random>

namespace parlane::bench {

std::string CentreName(int index) {
    char name[32];
    std::snprintf(name, sizeof name, "Centre %04d Ltd", index);
    return name;
}

Provider MakeBenchProvider(int index) {
    Provider p;
    p.ProviderName = CentreName(index);
    p.Password = "secret12";
    p.TapiDevice = "0";
    p.CountryCode = "44";
    p.AreaCode = "07";
    p.Number = "785499" + std::to_string(1000 + index % 9000);
    p.MaxChars = "160";
    p.Protocol = index % 2 == 0 ? ProtocolTap : ProtocolUcp;
    p.MultiMessage = 1;
    p.AllowASCII = "0";
    for (int b = 0; b < 40; ++b) p.DevConfig.push_back(static_cast<std::uint8_t>(index + b));
    p.MaxMessages = "3";
    p.UCPOperation = "01";
    return p;
}

std::vector<Provider> MakeProviders(int count) {
    std::vector<Provider> providers;
    providers.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) providers.push_back(MakeBenchProvider(i));
    return providers;
}

MessageTable MakeMessages(int count, int centres) {
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<int> centre(0, centres - 1);
    std::uniform_int_distribution<int> digit(0, 9);
    std::uniform_int_distribution<int> letter('a', 'z');
    MessageTable table = EmptyMessageTable();
    table.reserve(static_cast<std::size_t>(count) + 1);
    for (int i = 1; i <= count; ++i) {
        QueuedMessage m;
        m.CountryCode = "44";
        m.AreaCode = "07" + std::to_string(700 + digit(random) * 10);
        for (int d = 0; d < 6; ++d) m.Number += static_cast<char>('0' + digit(random));
        m.Text.reserve(160);
        while (m.Text.size() < 160)
            m.Text += static_cast<char>(m.Text.size() % 7 == 6 ? ' ' : letter(random));
        m.MessageNumber = i;
        m.ProviderIndex = centre(random);
        m.ProviderName = CentreName(m.ProviderIndex);
        table.push_back(std::move(m));
    }
    return table;
}

ScratchFolder::ScratchFolder() {
    std::random_device rd;
    path_ = std::filesystem::temp_directory_path() /
            ("parlane-bench-" + std::to_string(rd()) + std::to_string(rd()));
    std::filesystem::create_directories(path_);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

}  // namespace parlane::bench
