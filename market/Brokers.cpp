#include "market/Brokers.h"

#include "market/Random.h"

#include <algorithm>

namespace Market {
namespace {

constexpr TParticipant Houses[] = {
    // Names, first number, how many, weight.
    {{"Lotus Bay Securities", "蓮灣證券", "莲湾证券"}, 120, 10, 3},
    {{"Amber Quay Brokerage", "琥珀經紀", "琥珀经纪"}, 310, 5, 1},
    {{"Nine Pines Securities", "九松證券", "九松证券"}, 440, 10, 2},
    {{"Cloud Terrace Capital", "雲臺融資", "云台融资"}, 560, 10, 4},
    {{"Silver Junk Securities", "銀帆證券", "银帆证券"}, 730, 5, 1},
    {{"Plum Court Brokerage", "梅苑經紀", "梅苑经纪"}, 900, 5, 1},
    {{"Stone Lantern Securities", "石燈證券", "石灯证券"}, 1020, 10, 5},
    {{"White Heron Global Markets", "白鷺環球市場", "白鹭环球市场"}, 1190, 10, 14},
    {{"Long Jetty Securities", "長堤證券", "长堤证券"}, 1330, 10, 3},
    {{"Bamboo Gate Brokerage", "竹門經紀", "竹门经纪"}, 1410, 5, 1},
    {{"Morning Tide Securities", "晨潮證券", "晨潮证券"}, 1570, 10, 6},
    {{"Red Kapok Finance", "紅棉樹金融", "红棉树金融"}, 1690, 5, 2},
    {{"Far Beacon Securities", "遠燈塔證券", "远灯塔证券"}, 1830, 10, 3},
    {{"Green Inlet Brokerage", "碧澳經紀", "碧澳经纪"}, 2010, 5, 1},
    {{"Four Winds International", "四風國際", "四风国际"}, 2170, 10, 18},
    {{"Inkstone Securities", "硯臺證券", "砚台证券"}, 2340, 10, 2},
    {{"Quiet Peak Securities", "靜峰證券", "静峰证券"}, 2460, 5, 1},
    {{"Orchid Lane Brokerage", "蘭巷經紀", "兰巷经纪"}, 2590, 5, 1},
    {{"Tall Mast Securities", "高桅證券", "高桅证券"}, 2710, 10, 4},
    {{"Winter Rice Securities", "冬禾證券", "冬禾证券"}, 2820, 10, 8},
    {{"Harbour Crane Markets", "港鶴市場", "港鹤市场"}, 3060, 10, 22},
    {{"Twin Bridges Securities", "雙橋證券", "双桥证券"}, 3250, 10, 2},
    {{"Copper Bell Brokerage", "銅鐘經紀", "铜钟经纪"}, 3380, 5, 1},
    {{"Ninth Wave Securities", "九浪證券", "九浪证券"}, 3510, 10, 5},
    {{"Paper Kite Online", "紙鳶網上", "纸鸢网上"}, 3680, 20, 12},
    {{"Slate Hill Securities", "青石崗證券", "青石岗证券"}, 3870, 5, 1},
    {{"Moon Gate Capital", "月門融資", "月门融资"}, 4040, 10, 3},
    {{"Wild Goose Securities", "飛雁證券", "飞雁证券"}, 4230, 10, 2},
    {{"Camphor Tree Bank", "樟樹銀行", "樟树银行"}, 4460, 20, 26},
    {{"Tea Horse Securities", "茶馬證券", "茶马证券"}, 4680, 10, 2},
    {{"Old Pier Brokerage", "舊碼頭經紀", "旧码头经纪"}, 4890, 5, 1},
    {{"Star Ledge Securities", "星崖證券", "星崖证券"}, 5050, 10, 7},
    {{"Lacquer Box Securities", "漆盒證券", "漆盒证券"}, 5230, 5, 1},
    {{"Grey Dolphin Bank", "灰豚銀行", "灰豚银行"}, 5470, 10, 10},
    {{"Willow Ferry Securities", "柳渡證券", "柳渡证券"}, 5690, 10, 2},
    {{"Salt Road Brokerage", "鹽道經紀", "盐道经纪"}, 5860, 5, 1},
    {{"North Ridge Connect", "北嶺互通", "北岭互通"}, 6980, 10, 24},
    {{"Fir Island Securities", "杉島證券", "杉岛证券"}, 7120, 10, 3},
    {{"Pale Lantern Trading", "淡燈交易", "淡灯交易"}, 7450, 10, 6},
    {{"Home Port Securities (paper)", "本港模擬證券", "本港模拟证券"}, 8080, 10, 0},
    {{"Coral Stair Online", "珊瑚階網上", "珊瑚阶网上"}, 8370, 20, 9},
    {{"Swift River Algorithmic", "疾川程式交易", "疾川程式交易"}, 8650, 10, 16},
    {{"Quartz Liquidity", "石英流通", "石英流通"}, 9710, 10, 0},
    {{"Vesper Liquidity", "暮星流通", "暮星流通"}, 9720, 10, 0},
    {{"Larch Bank Liquidity", "落葉松流通", "落叶松流通"}, 9730, 10, 0},
    {{"Auric Liquidity", "金輝流通", "金辉流通"}, 9740, 10, 0},
};

/// How much less of a house's orders each number brings than the one before it.
constexpr double NextNumber = 0.6;

std::string FourDigits(TBrokerId broker) {
  const std::string digits = std::to_string(broker);
  return std::string(4 - digits.size(), '0') + digits;
}

} // namespace

std::span<const TParticipant> Participants() { return Houses; }

const TParticipant* FindParticipant(TBrokerId broker) {
  const auto* const after = std::ranges::upper_bound(Houses, broker, {}, &TParticipant::First);
  if (after == std::begin(Houses))
    return nullptr;
  const TParticipant& house = *std::prev(after);
  return broker < house.First + house.Numbers ? &house : nullptr;
}

std::vector<TReferenceData::TBroker> BrokerDirectory() {
  std::vector<TReferenceData::TBroker> directory;
  for (const TParticipant& house : Houses)
    for (int number = 0; number < house.Numbers; ++number)
      directory.push_back({.Id = FourDigits(house.First + number),
                           .Name = std::string(house.Names.English),
                           .Name1 = std::string(house.Names.Traditional),
                           .Name2 = std::string(house.Names.Simplified),
                           .Other = std::string(house.Names.English)});
  return directory;
}

TBrokerDraw::TBrokerDraw() {
  double sum = 0;
  for (const TParticipant& house : Houses) {
    double share = house.Weight;
    for (int number = 0; number < house.Numbers && house.Weight > 0; ++number) {
      shares_.push_back({house.First + number, sum += share});
      share *= NextNumber;
    }
  }
}

TBrokerId TBrokerDraw::Draw(TRandom& random) const {
  const double point = random.Uniform() * shares_.back().UpTo;
  return std::ranges::upper_bound(shares_, point, {}, &TShare::UpTo)->Broker;
}

} // namespace Market
