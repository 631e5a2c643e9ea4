#include "terminal/market/ListingData.h"

namespace Terminal::Market {
namespace {

using namespace std::chrono_literals;
using enum TKind;
using enum TCapitalisation;

// Prices are thousandths. The temper is volatility a year, orders a second, mean lots of an order.
constexpr TSecurityRow Securities[] = {
    // clang-format off
    // Large companies.
    {"18", {"JADE HARBOUR BK", "翠港銀行", "翠港银行"}, Share, "01", 500, 61'250, 68'900, 44'100, 19'020, 5.62, 5.1, Large, 'B', {0.22, 7, 4}},
    {"41", {"CRANE CITY LAND", "鶴城地產", "鹤城地产"}, Share, "01", 1000, 44'600, 52'300, 36'100, 2'898, 4.90, 4.3, Large, 'P', {0.27, 4, 3}},
    {"73", {"TWIN FERRY", "雙渡運輸", "双渡运输"}, Share, "01", 500, 27'800, 31'400, 22'700, 6'190, 1.72, 4.6, Large, 'R', {0.20, 4, 4}},
    {"152", {"MERIDIAN EXCH", "子午交易所", "子午交易所"}, Share, "01", 100, 402'200, 451'800, 298'400, 1'268, 12.35, 2.4, Large, 'F', {0.29, 8, 5}},
    {"336", {"SILK ROAD TEL", "絲路電訊", "丝路电讯"}, Share, "01", 2000, 8'360, 9'120, 6'450, 21'400, 0.74, 6.2, Large, 'T', {0.21, 4, 12}},
    {"518", {"BLUE GULF OIL", "藍灣石油", "蓝湾石油"}, Share, "01", 1000, 19'560, 22'300, 15'080, 47'560, 2.81, 7.0, Large, 'E', {0.28, 7, 10}},
    {"700", {"HARBOUR TECH", "維港科技", "维港科技"}, Share, "01", 100, 315'800, 361'800, 244'200, 9'200, 14.75, 1.1, Large, 'D', {0.33, 14, 6}},
    {"846", {"NORTH PLAIN BK", "北原銀行", "北原银行"}, Share, "01", 1000, 7'620, 8'350, 5'410, 240'400, 1.31, 6.4, Large, 'B', {0.19, 8, 30}},
    {"1266", {"VOLT RIVER", "伏江電動", "伏江电动"}, Share, "01", 500, 108'400, 141'200, 82'600, 3'680, 4.36, 0.9, Large, 'M', {0.41, 8, 3}},
    {"1408", {"LONG PINE LIFE", "長松人壽", "长松人寿"}, Share, "01", 200, 72'350, 83'100, 48'900, 10'700, 4.94, 2.3, Large, 'F', {0.30, 6, 5}},
    {"1855", {"PEBBLE MOBILE", "卵石移動", "卵石移动"}, Share, "01", 200, 38'600, 57'500, 21'300, 20'500, 1.46, 0, Large, 'D', {0.43, 10, 8}},
    {"2468", {"BAZAAR NETWORK", "大集網絡", "大集网络"}, Share, "01", 100, 138'200, 168'400, 79'300, 19'100, 7.15, 1.2, Large, 'D', {0.40, 12, 8}},
    {"3555", {"LANTERN MEALS", "燈籠外賣", "灯笼外卖"}, Share, "01", 100, 124'700, 187'300, 96'800, 5'510, 5.02, 0, Large, 'D', {0.42, 7, 6}},
    {"6777", {"PALACE DISTIL", "宮廷酒業", "宫廷酒业"}, Share, "01", 10, 1'286'000, 1'522'000, 988'500, 420, 61.20, 3.3, Large, 'C', {0.26, 2, 4}},
    // Middling companies.
    {"214", {"LOTUS PHARMA", "蓮心藥業", "莲心药业"}, Share, "01", 500, 12'340, 16'520, 8'650, 2'130, 0.62, 1.4, Mid, 'H', {0.45, 2.5, 5}},
    {"590", {"GREY CRANE AIR", "灰鶴航空", "灰鹤航空"}, Share, "01", 1000, 9'870, 11'260, 7'020, 6'440, 0.91, 3.8, Mid, 'R', {0.31, 2, 4}},
    {"1123", {"TEA HILL FOODS", "茶山食品", "茶山食品"}, Share, "01", 1000, 5'430, 6'870, 4'590, 5'610, 0.37, 4.1, Mid, 'C', {0.30, 1.8, 5}},
    {"1560", {"SNOW PEAK WATER", "雪峰水務", "雪峰水务"}, Share, "01", 2000, 3'280, 3'910, 2'440, 9'080, 0.33, 5.5, Mid, 'U', {0.26, 1.5, 4}},
    {"2088", {"IRON GATE STEEL", "鐵門鋼鐵", "铁门钢铁"}, Share, "01", 2000, 1'940, 2'760, 1'310, 7'020, -0.12, 0, Mid, 'E', {0.44, 2, 6}},
    {"2716", {"COURTYARD HOTEL", "四合酒店", "四合酒店"}, Share, "01", 500, 18'660, 24'700, 13'940, 3'250, 1.12, 2.0, Mid, 'P', {0.36, 2, 4}},
    // Small companies.
    {"261", {"SEVEN STAR TOYS", "七星玩具", "七星玩具"}, Share, "01", 4000, 860, 1'240, 620, 1'180, 0.09, 3.5, Small, 'C', {0.50, 0.25, 5}},
    {"433", {"QUAY GARMENT", "碼頭製衣", "码头制衣"}, Share, "01", 5000, 345, 480, 240, 2'010, 0.03, 2.9, Small, 'C', {0.55, 0.2, 5}},
    {"817", {"PAPER LANE", "紙巷印刷", "纸巷印刷"}, Share, "01", 10'000, 128, 196, 91, 3'340, 0.008, 0, Small, 'C', {0.60, 0.12, 4}},
    {"1077", {"KAPOK MINING", "紅棉礦業", "红棉矿业"}, Share, "01", 10'000, 239, 390, 118, 1'450, 0.027, 0, Small, 'E', {0.70, 0.8, 8}},
    {"1342", {"DELTA CEMENT", "江口水泥", "江口水泥"}, Share, "01", 2000, 620, 880, 450, 4'350, 0.07, 4.8, Small, 'E', {0.42, 0.3, 6}},
    {"1696", {"NIGHT BUS MEDIA", "夜巴傳媒", "夜巴传媒"}, Share, "01", 20'000, 52, 104, 33, 5'900, -0.006, 0, None, 'D', {0.75, 0.1, 5}},
    {"2193", {"OLD KILN CERAM", "古窯陶瓷", "古窑陶瓷"}, Share, "01", 40'000, 14, 31, 11, 11'200, -0.002, 0, None, 'C', {0.85, 0.08, 4}},
    {"1629", {"QUIET MILL", "靜磨集團", "静磨集团"}, Share, "01", 2000, 730, 1'150, 690, 2'240, 0.05, 0, Small, 'C', {0.50, 0.5, 5}},
    {"6021", {"NEW WHARF", "新埠控股", "新埠控股"}, Share, "01", 1000, 2'350, 0, 0, 800, 0, 0, None, ' ', {0.50, 0.5, 4}},
    // The growth board.
    {"8066", {"SEEDLING ROBOT", "幼苗機械人", "幼苗机器人"}, Share, "01", 2000, 1'070, 2'180, 760, 640, -0.21, 0, None, 'D', {0.80, 0.3, 4}},
    {"8231", {"COPPER LEAF BIO", "銅葉生物", "铜叶生物"}, Share, "01", 5000, 415, 690, 280, 920, 0.01, 0, None, 'H', {0.75, 0.1, 4}},
    // Trust, funds, bond.
    {"872", {"BAY ARCADE REIT", "灣廊房產基金", "湾廊房产基金"}, Trust, "01", 1000, 7'450, 8'620, 5'830, 2'550, 0.46, 7.1, Mid, 'P', {0.21, 1.6, 4}},
    {"2855", {"HARBOUR 40 ETF", "維港四十", "维港四十"}, Fund, "05", 500, 24'860, 27'720, 17'460, 4'900, 0, 3.2, None, 'X', {0.20, 9, 12}},
    {"3077", {"BAY BOND ETF", "灣區債券", "湾区债券"}, Fund, "05", 1000, 7'245, 7'390, 6'905, 310, 0, 4.4, None, 'X', {0.05, 0.8, 6}},
    {"3188", {"HARBOUR TECH 50", "維港科技50", "维港科技50"}, Fund, "05", 500, 4'126, 5'345, 2'384, 620, 0, 0, None, 'X', {0.40, 4, 10}},
    {"4246", {"PEARL B2805", "珠江債二八", "珠江债二八"}, Bond, "03", 100, 101'350, 102'600, 98'450, 20, 0, 0, None, ' ', {0.03, 0.15, 3}},
    // The renminbi counter of 700, and two lines of other exchanges.
    {"80700", {"HARBOUR TECH-R", "維港科技－Ｒ", "维港科技－Ｒ"}, Share, "01", 100, 290'600, 333'000, 224'800, 9'200, 13.57, 1.1, None, 'D', {0.33, 4, 2}},
    {"600816", {"RIVER DAM POWER", "江壩電力", "江坝电力"}, Share, "01", 100, 8'460, 9'970, 6'680, 24'470, 0.58, 4.2, None, 'U', {0.24, 5, 20}},
    {"601452", {"HIDDEN COVE", "隱灣實業", "隐湾实业"}, Share, "01", 100, 13'280, 18'300, 9'940, 4'720, 0.77, 1.9, None, ' ', {0.38, 3, 15}},
    // clang-format on
};

constexpr TSpecialRow Specials[] = {
    {"18", TStanding::Trading, "HKG", "HKD", 0, "EX DIVIDEND HKD 0.85", "", ""},
    {"1342", TStanding::Trading, "HKG", "HKD", 0, "", "SHARE BUY-BACK", ""},
    {"1629", TStanding::Halted, "HKG", "HKD", 0, "TRADING HALTED", "PENDING ANNOUNCEMENT", ""},
    {"6021", TStanding::Unknown, "HKG", "HKD", 0, "NOT YET LISTED", "", ""},
    {"8066", TStanding::Trading, "HKG", "HKD", 0, "", "", "GROWTH BOARD"},
    {"8231", TStanding::Trading, "HKG", "HKD", 0, "", "", "GROWTH BOARD"},
    {"80700", TStanding::Trading, "HKG", "CNY", 0, "", "", "RENMINBI COUNTER"},
    {"600816", TStanding::Trading, "MLB", "CNY", 10, "", "", ""},
    {"601452", TStanding::Trading, "XCL", "CNY", 10, "", "", ""},
};

constexpr TCounterRow Counters[] = {{"700", "80700"}};

constexpr TUnderlyingRow Underlyings[] = {
    {"18", "JADEH", "翠港", "翠港"},   {"152", "MEREX", "子午", "子午"},
    {"700", "HBTEC", "維科", "维科"},  {"1266", "VOLT", "伏江", "伏江"},
    {"2468", "BAZNW", "大集", "大集"}, {"2855", "HB40", "維四", "维四"},
};

constexpr TIssuerRow Issuers[] = {
    {"QZ", "石英", "石英", 9711},
    {"VS", "暮星", "暮星", 9722},
    {"LB", "落葉", "落叶", 9733},
    {"AU", "金輝", "金辉", 9744},
};

constexpr TRight Call = TRight::Call;
constexpr TRight Put = TRight::Put;

constexpr TWarrantRow Warrants[] = {
    {"14680", "700", "QZ", Call, 330, 100, 2026y / 12 / 21, 0.36, 'E', 'A', 5000, 80},
    {"14722", "700", "VS", Call, 380, 100, 2026y / 9 / 25, 0.38, 'E', 'B', 10'000, 100},
    {"14815", "700", "LB", Put, 290, 100, 2026y / 11 / 20, 0.37, 'E', 'A', 5000, 60},
    {"14903", "152", "QZ", Call, 440, 100, 2026y / 10 / 29, 0.34, 'E', 'A', 5000, 70},
    {"15044", "152", "AU", Put, 380, 100, 2026y / 8 / 24, 0.35, 'E', 'C', 5000, 50},
    {"15187", "2468", "VS", Call, 150, 50, 2026y / 12 / 23, 0.42, 'E', 'A', 5000, 120},
    {"15260", "2468", "LB", Put, 125, 50, 2026y / 9 / 28, 0.43, 'E', 'B', 5000, 80},
    {"15391", "1266", "AU", Call, 120, 50, 2027y / 1 / 25, 0.48, 'E', 'A', 5000, 90},
    {"15478", "1266", "QZ", Put, 100, 50, 2026y / 10 / 26, 0.49, 'E', 'B', 10'000, 60},
    {"15533", "18", "VS", Call, 68, 10, 2026y / 11 / 25, 0.27, 'E', 'A', 4000, 100},
    {"16012", "2855", "LB", Call, 26, 10, 2026y / 12 / 28, 0.22, 'E', 'A', 10'000, 150},
    {"16127", "2855", "AU", Put, 24, 10, 2026y / 9 / 25, 0.23, 'A', 'A', 10'000, 100},
};

constexpr TContractRow Contracts[] = {
    {"55321", "700", "VS", Call, 'R', 290, 295'000, 100, 2026y / 11 / 27, 'B', 10'000, 150},
    {"55408", "700", "QZ", Call, 'N', 280, 280'000, 100, 2026y / 12 / 30, 'C', 10'000, 100},
    {"55672", "700", "LB", Put, 'R', 345, 340'000, 100, 2026y / 10 / 29, 'A', 10'000, 120},
    {"55719", "700", "AU", Put, 'R', 330, 325'000, 100, 2026y / 9 / 29, 'D', 10'000, 80},
    {"56104", "152", "QZ", Call, 'R', 375, 381'000, 100, 2026y / 12 / 30, 'A', 10'000, 60},
    {"56188", "152", "VS", Put, 'N', 436, 436'000, 100, 2026y / 11 / 27, 'B', 10'000, 60},
    {"57230", "2468", "LB", Call, 'R', 122, 126'000, 50, 2026y / 12 / 30, 'A', 10'000, 100},
    {"57344", "2468", "AU", Put, 'R', 152, 148'500, 50, 2026y / 10 / 29, 'B', 10'000, 100},
    {"58011", "1266", "VS", Call, 'R', 96, 99'000, 50, 2026y / 11 / 27, 'A', 10'000, 80},
    {"58126", "1266", "QZ", Put, 'N', 121, 121'000, 50, 2026y / 9 / 29, 'A', 10'000, 80},
    {"59240", "2855", "LB", Call, 'R', 23.2, 23'500, 10, 2026y / 12 / 30, 'A', 10'000, 200},
    {"59377", "2855", "AU", Put, 'R', 26.4, 26'100, 10, 2026y / 12 / 30, 'A', 10'000, 200},
};

} // namespace

std::span<const TSecurityRow> SecurityRows() { return Securities; }
std::span<const TSpecialRow> SpecialRows() { return Specials; }
std::span<const TCounterRow> CounterRows() { return Counters; }
std::span<const TUnderlyingRow> UnderlyingRows() { return Underlyings; }
std::span<const TIssuerRow> IssuerRows() { return Issuers; }
std::span<const TWarrantRow> WarrantRows() { return Warrants; }
std::span<const TContractRow> ContractRows() { return Contracts; }

} // namespace Terminal::Market
