#!/usr/bin/env python3
"""Makes a small simulated market as a recording: python3 make_recording.py > simulated.jsonl

One order book per instrument is simulated, order by order; every published figure is read off it.
Nothing in it is real: companies, issuers, brokers and prices are invented. The same seed gives the
same file. The fair prices come back to where they started, so that the recording can be repeated
without a jump.
"""

import argparse
import heapq
import json
import math
import random
import sys

START_SECONDS = 10 * 3600 + 15 * 60
LENGTH_SECONDS = 120
DEPTH = 10
QUEUE_ENTRIES = 40

# Prices are integers of a thousandth of the currency unit throughout.
MILS = 1000

# Spread-table code: bands as (upper end, step), in mils; each band begins where the last ended.
SPREADS = {
    "01": [(250, 1), (500, 5), (10_000, 10), (20_000, 10), (50_000, 20), (100_000, 50),
           (200_000, 100), (500_000, 200), (1_000_000, 500), (2_000_000, 1000), (5_000_000, 2000),
           (9_995_000, 5000)],
    "05": [(1000, 1), (5000, 2), (10_000, 5), (20_000, 10), (100_000, 20), (200_000, 50),
           (500_000, 100), (1_000_000, 200), (2_000_000, 500), (9_999_000, 1000)],
    "06": [(250, 1), (500, 5), (10_000, 10), (20_000, 20), (100_000, 50), (200_000, 100),
           (500_000, 200), (1_000_000, 500), (2_000_000, 1000), (5_000_000, 2000),
           (9_995_000, 5000)],
}

# Record fields of the depth levels, level 1 first.
BID_FIELDS = {"price": [1, 81, 82, 83, 84, 3180, 3181, 3182, 3183, 3184],
              "size": [16, 51, 52, 53, 54, 3155, 3156, 3157, 3158, 3159],
              "count": [55, 56, 57, 58, 59, 3136, 3137, 3138, 3139, 3140]}
ASK_FIELDS = {"price": [2, 91, 92, 93, 94, 3190, 3191, 3192, 3193, 3194],
              "size": [19, 61, 62, 63, 64, 3165, 3166, 3167, 3168, 3169],
              "count": [65, 66, 67, 68, 69, 3146, 3147, 3148, 3149, 3150]}

# English, traditional and simplified Chinese.
HOUSES = [("Lotus Bay", "蓮灣", "莲湾"), ("Amber Quay", "琥珀", "琥珀"),
          ("Nine Pines", "九松", "九松"), ("Cloud Terrace", "雲臺", "云台"),
          ("Silver Junk", "銀帆", "银帆"), ("Plum Court", "梅苑", "梅苑"),
          ("Stone Lantern", "石燈", "石灯"), ("White Heron", "白鷺", "白鹭"),
          ("Long Jetty", "長堤", "长堤"), ("Bamboo Gate", "竹門", "竹门"),
          ("Morning Tide", "晨潮", "晨潮"), ("Red Kapok", "紅棉樹", "红棉树"),
          ("Far Beacon", "遠燈塔", "远灯塔"), ("Green Inlet", "碧澳", "碧澳"),
          ("Four Winds", "四風", "四风"), ("Inkstone", "硯臺", "砚台"),
          ("Quiet Peak", "靜峰", "静峰"), ("Orchid Lane", "蘭巷", "兰巷"),
          ("Tall Mast", "高桅", "高桅"), ("Winter Rice", "冬禾", "冬禾")]
KINDS = [("Securities", "證券", "证券"), ("Brokerage", "經紀", "经纪")]


def brokers():
    """The broker directory: forty numbers, each with its own name."""
    directory = []
    for number, (english, traditional, simplified) in enumerate(HOUSES):
        for kind, (kind_english, kind_traditional, kind_simplified) in enumerate(KINDS):
            directory.append({"id": f"{120 + number * 437 + kind * 10:04d}",
                              "name": f"{english} {kind_english}",
                              "name1": traditional + kind_traditional,
                              "name2": simplified + kind_simplified,
                              "other": english.upper()})
    return directory


def price_grid(code):
    """Every valid price of a spread table, ascending."""
    prices, start = [], 0
    for end, step in SPREADS[code]:
        prices.extend(range(start + step, end + 1, step))
        start = end
    return prices


def number_text(mils):
    """A price in currency units, without needless zeros."""
    return f"{mils / MILS:.3f}".rstrip("0").rstrip(".")


def normal(x):
    """The standard normal distribution function."""
    return (1 + math.erf(x / math.sqrt(2))) / 2


def call_value(price, strike, years, volatility):
    """The value of a European call, without interest."""
    deviation = volatility * math.sqrt(years)
    d1 = math.log(price / strike) / deviation + deviation / 2
    return price * normal(d1) - strike * normal(d1 - deviation)


class Order:
    def __init__(self, broker, size):
        self.broker = broker
        self.size = size


class Side:
    """One side of a book: orders by place on the price grid, first come first served."""

    def __init__(self, sign):
        self.sign = sign  # -1: bids, deeper is lower; 1: asks
        self.levels = {}

    def places(self):
        """The places that hold orders, best first."""
        return sorted(self.levels, key=lambda place: self.sign * place)

    def best(self):
        return self.places()[0] if self.levels else None

    def remove(self, place, order):
        self.levels[place].remove(order)
        if not self.levels[place]:
            del self.levels[place]


class Instrument:
    """A book, what has been traded in it, and what of it has been published."""

    def __init__(self, symbol, spread, lot, static, fair, rate, rng, directory):
        self.symbol, self.lot, self.static, self.fair, self.rate = symbol, lot, static, fair, rate
        self.rng = rng
        self.directory = directory
        self.grid = price_grid(spread)
        self.spread = spread
        self.bids, self.asks = Side(-1), Side(1)
        self.limits = None  # lowest and highest price of a cooling-off
        self.published = {}
        self.queue_due = 0.0

    # The book

    def place_of(self, mils):
        """The place of the highest valid price that is not above `mils`."""
        low, high = 0, len(self.grid)
        while high - low > 1:
            middle = (low + high) // 2
            low, high = (middle, high) if self.grid[middle] <= mils else (low, middle)
        return low

    def is_allowed(self, place):
        return self.limits is None or self.limits[0] <= self.grid[place] <= self.limits[1]

    def new_order(self):
        lots = self.rng.choice([1, 1, 1, 2, 2, 3, 4, 5, 5, 8, 10, 10, 20, 40])
        return Order(self.rng.choice(self.directory)["id"], lots * self.lot)

    def other(self, side):
        return self.asks if side is self.bids else self.bids

    def front(self, side, fair_place):
        """The best place for a new order: not past the fair price, and not crossing the book."""
        fair_front = fair_place if side is self.bids else fair_place + 1
        opposite = self.other(side).best()
        if opposite is None:
            return fair_front
        return side.sign * max(side.sign * fair_front, side.sign * (opposite + side.sign))

    def refill(self, side, fair_place):
        """An order on the thinnest of the places next to the fair price."""
        front = self.front(side, fair_place)
        places = [front + side.sign * i for i in range(DEPTH + 2)]

        def crowd(place):
            wanted = 1 + 3 / (1 + abs(place - front))
            return len(side.levels.get(place, [])) / wanted

        thinnest = min(filter(self.is_allowed, places), key=crowd)
        side.levels.setdefault(thinnest, []).append(self.new_order())

    def cancel(self, side):
        """Withdraws an order, rather a deep one."""
        places = side.places()
        place = places[max(self.rng.randrange(len(places)), self.rng.randrange(len(places)))]
        if len(side.levels) > 1:
            side.remove(place, self.rng.choice(side.levels[place]))

    def take(self, side, now, recording):
        """A marketable order against `side`; each fill is a trade."""
        places = side.places()
        size = min(self.new_order().size, sum(o.size for o in side.levels[places[0]]) * 2)
        while size > 0 and len(side.levels) > 2:
            place = side.best()
            resting = side.levels[place][0]
            filled = min(size, resting.size)
            size -= filled
            resting.size -= filled
            if resting.size == 0:
                side.remove(place, resting)
            self.trade(self.grid[place], filled)
            mark = "B" if side is self.asks else "S"
            self.publish(now, recording, trade_record(now, mark, filled, self.grid[place]))

    def trade(self, mils, size):
        self.last = mils
        self.volume += size
        self.turnover += mils * size
        self.high, self.low = max(self.high, mils), min(self.low, mils)

    def drop_stale(self, fair_place):
        """Quotes that the fair price has passed are withdrawn; true when there was one."""
        for side, limit in ((self.bids, fair_place), (self.asks, fair_place + 1)):
            best = side.best()
            if best is not None and side.sign * (best - limit) < -1 and len(side.levels) > 2:
                del side.levels[best]
                return True
        return False

    def narrow(self, fair_place):
        """A market maker closes a wide spread from the side that lags; true when it was wide."""
        bid, ask = self.bids.best(), self.asks.best()
        if ask - bid <= 2:
            return False
        self.refill(self.bids if fair_place - bid > ask - fair_place - 1 else self.asks, fair_place)
        return True

    def open(self, previous_close, opening, high, low, traded_lots):
        """Fills the book and settles what was traded before the recording."""
        fair_place = self.place_of(self.fair(0))
        for _ in range(70):
            self.refill(self.bids, fair_place)
            self.refill(self.asks, fair_place)
        self.previous_close, self.opening, self.high, self.low = previous_close, opening, high, low
        self.last = self.grid[self.bids.best()]
        self.volume = traded_lots * self.lot
        self.turnover = self.volume * (opening + self.last) // 2

    def act(self, seconds, now, recording):
        """What one participant does."""
        fair = self.fair(seconds)
        if self.drop_stale(self.place_of(fair)) or self.narrow(self.place_of(fair)):
            pass
        elif self.rng.random() < 0.22:
            middle = (self.grid[self.bids.best()] + self.grid[self.asks.best()]) / 2
            buys = self.rng.random() < (0.75 if fair > middle else 0.25)
            self.take(self.asks if buys else self.bids, now, recording)
        else:
            self.quote(self.rng.choice([self.bids, self.asks]), self.place_of(fair))
        self.publish(now, recording)

    def quote(self, side, fair_place):
        """A new order or a withdrawal, so that the number of orders stays about the same."""
        if sum(len(orders) for orders in side.levels.values()) > self.rng.gauss(70, 6):
            self.cancel(side)
        else:
            self.refill(side, fair_place)

    # What is published of it

    def depth(self, side, fields):
        places = side.places()[:DEPTH]
        texts = {}
        for level in range(DEPTH):
            orders = side.levels[places[level]] if level < len(places) else None
            texts[fields["price"][level]] = orders and number_text(self.grid[places[level]])
            texts[fields["size"][level]] = orders and str(sum(order.size for order in orders))
            texts[fields["count"][level]] = orders and str(len(orders))
        return texts

    def figures(self):
        bid, ask = self.grid[self.bids.best()], self.grid[self.asks.best()]
        return {3: number_text(min(max(self.last, bid), ask)), 17: str(self.volume),
                38: f"{self.turnover / MILS:.2f}", 37: number_text(self.high),
                32: number_text(self.low)}

    def queue(self, side):
        """Broker numbers in order of precedence, a marker before each level but the best."""
        entries, best = [], side.best()
        for place in side.places():
            if place != best:
                entries.append(f"{place - best:+d}")
            entries.extend(order.broker for order in side.levels[place])
        entries = entries[:QUEUE_ENTRIES]
        while entries and entries[-1][0] in "+-":
            entries.pop()
        return ",".join(entries)

    def publish(self, now, recording, trade=None):
        """The fields that differ from what was published last."""
        texts = {**self.figures(), **self.depth(self.bids, BID_FIELDS),
                 **self.depth(self.asks, ASK_FIELDS)}
        self.emit(now, recording, texts, trade)

    def publish_queue(self, now, recording):
        self.emit(now, recording, {120: self.queue(self.bids), 121: self.queue(self.asks)})

    def publish_opening(self, now, recording):
        texts = {**self.static, 31: number_text(self.previous_close),
                 133: number_text(self.opening), 73: self.spread, 24: str(self.lot)}
        self.emit(now, recording, texts)
        for age in (41, 33, 20, 12, 3):
            mark = self.rng.choice("BS")
            price = self.grid[(self.bids if mark == "S" else self.asks).best()]
            size = self.rng.randint(1, 8) * self.lot
            self.emit(now, recording, {}, trade_record(now - age, mark, size, price))
        self.publish(now, recording)
        self.publish_queue(now, recording)

    def emit(self, now, recording, texts, trade=None):
        changed = {field: text for field, text in texts.items()
                   if self.published.get(field) != text}
        self.published.update(changed)
        line = {"t": time_text(now), "s": self.symbol}
        if changed:
            line["f"] = {str(field): text for field, text in changed.items()}
        if trade:
            line["trade"] = trade
        if changed or trade:
            recording.append(line)


def time_text(seconds):
    micros = round(seconds * 1_000_000)
    whole, fraction = divmod(micros, 1_000_000)
    return f"{whole // 3600:02d}:{whole // 60 % 60:02d}:{whole % 60:02d}.{fraction:06d}"


def trade_record(now, mark, size, mils):
    return {"time": time_text(now)[:8], "side": mark, "qty": str(size),
            "price": number_text(mils)}


def wave(middle, amplitude, phase):
    """A fair price in mils that wanders and is back at its start after the recording's length."""

    def sway(seconds):
        turn = 2 * math.pi * seconds / LENGTH_SECONDS
        return (math.sin(turn + phase) + 0.5 * math.sin(3 * turn + 2 * phase)
                + 0.25 * math.sin(7 * turn))
    return lambda seconds: middle + amplitude * (sway(seconds) - sway(0))


STOCK_TECH, STOCK_MINE, WARRANT, BULL = "700", "1077", "14680", "55321"

# Conversion ratio, strike and, of the bull contract, call price.
WARRANT_RATIO, WARRANT_STRIKE = 0.01, 330
BULL_RATIO, BULL_STRIKE, BULL_CALL = 0.01, 290, 295

COMMON = {20: "HKG", 23: "HKD"}
STATIC = {
    STOCK_TECH: {**COMMON, 22: "1", 10: "HARBOUR TECH", 18: "9200000000", 49: "21.4", 102: "1.1",
                 131: "361.8", 132: "244.2", 135: WARRANT, 136: f"{BULL} {STOCK_MINE}",
                 3200: "9711 9712"},
    STOCK_MINE: {**COMMON, 22: "1", 10: "KAPOK MINING", 18: "1450000000", 49: "8.7", 102: "3.2",
                 131: "0.39", 132: "0.118", 136: STOCK_TECH},
    WARRANT: {**COMMON, 22: "4", 10: "QZHBTEC@EC2612A", 18: "80000000", 26: STOCK_TECH,
              27: str(WARRANT_STRIKE), 28: "C", 29: "2026-12-21", 104: str(WARRANT_RATIO),
              170: "1", 131: "0.62", 132: "0.205", 135: STOCK_TECH, 136: BULL, 3200: "9711"},
    BULL: {**COMMON, 22: "4", 10: "QV#HBTECRC2611B", 18: "150000000", 26: STOCK_TECH,
           27: str(BULL_STRIKE), 28: "C", 29: "2026-11-27", 104: str(BULL_RATIO), 170: "1",
           172: str(BULL_CALL), 131: "0.55", 132: "0.129", 135: STOCK_TECH, 136: WARRANT,
           3200: "9712"},
}


# Previous close, opening, highest and lowest price in mils, and lots traded before the recording.
SETTLED = {STOCK_TECH: (315_800, 316_400, 320_000, 315_600, 61_372),
           STOCK_MINE: (216, 221, 248, 219, 2_914), WARRANT: (365, 375, 405, 370, 488),
           BULL: (270, 275, 305, 270, 935)}

# Volatility control on the second stock: it began before the recording and ends in its midst.
COOLING_OFF = {3501: "10:11:05", 3502: "10:16:05", 3503: 238, 3504: 215, 3505: 260}
COOLING_OFF_END = 65.0


def warrant_fair(tech):
    return lambda seconds: MILS * WARRANT_RATIO * call_value(tech(seconds) / MILS, WARRANT_STRIKE,
                                                             0.9, 0.36)


def bull_fair(tech):
    return lambda seconds: MILS * BULL_RATIO * (tech(seconds) / MILS - BULL_STRIKE + 0.9)


def instruments(rng, directory):
    """The four instruments with their books filled. Rates are actions a second."""
    tech, mine = wave(318_400, 900, 0.7), wave(241.5, 3.5, 2.1)
    listed = []
    for symbol, spread, lot, fair, rate in ((STOCK_TECH, "01", 100, tech, 9.0),
                                            (STOCK_MINE, "01", 10_000, mine, 4.5),
                                            (WARRANT, "06", 5_000, warrant_fair(tech), 2.6),
                                            (BULL, "06", 10_000, bull_fair(tech), 2.6)):
        instrument = Instrument(symbol, spread, lot, STATIC[symbol], fair, rate, rng, directory)
        if symbol == STOCK_MINE:
            instrument.limits = (COOLING_OFF[3504], COOLING_OFF[3505])
        instrument.open(*SETTLED[symbol])
        listed.append(instrument)
    return listed


def begin_cooling_off(stock, recording):
    texts = {field: number_text(value) if isinstance(value, int) else value
             for field, value in COOLING_OFF.items()}
    stock.emit(START_SECONDS, recording, {3500: "1", **texts})


def end_cooling_off(stock, now, recording):
    stock.limits = None
    stock.emit(now, recording, {3500: "0", **dict.fromkeys(COOLING_OFF)})


def simulate(rng, directory):
    """The lines of the recording after its header."""
    listed = instruments(rng, directory)
    recording = []
    for instrument in listed:
        instrument.publish_opening(START_SECONDS, recording)
    begin_cooling_off(listed[1], recording)
    agenda = [(rng.expovariate(i.rate), n, "act") for n, i in enumerate(listed)]
    agenda += [(0.4 + 0.2 * n, n, "queue") for n in range(len(listed))]
    agenda.append((COOLING_OFF_END, 1, "end"))
    heapq.heapify(agenda)
    while agenda[0][0] < LENGTH_SECONDS:
        seconds, number, kind = heapq.heappop(agenda)
        instrument, now = listed[number], START_SECONDS + seconds
        if kind == "act":
            instrument.act(seconds, now, recording)
            burst = rng.random() < 0.2
            pause = rng.uniform(0.0002, 0.004) if burst else rng.expovariate(instrument.rate * 0.8)
            heapq.heappush(agenda, (seconds + pause, number, kind))
        elif kind == "queue":
            instrument.publish_queue(now, recording)
            heapq.heappush(agenda, (seconds + 5.5 / instrument.rate ** 0.8, number, kind))
        else:
            end_cooling_off(instrument, now, recording)
    return recording


def header(directory):
    spreads = {}
    for code, bands in SPREADS.items():
        starts = [0] + [end for end, _ in bands]
        spreads[code] = {"state": 1, "bands": [[start / MILS, end / MILS, step / MILS]
                                               for start, (end, step) in zip(starts, bands)]}
    listed = [{"symbol": symbol, "name": texts[10], "currency": texts[23]}
              for symbol, texts in STATIC.items()]
    return {"quorprice": 1, "simulated": True, "spreads": spreads, "brokers": directory,
            "instruments": listed}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--seed", type=int, default=700)
    arguments = parser.parse_args()
    directory = brokers()
    lines = [header(directory)] + simulate(random.Random(arguments.seed), directory)
    sys.stdout.reconfigure(encoding="utf-8", newline="\n")
    for line in lines:
        print(json.dumps(line, ensure_ascii=False, separators=(",", ":")))


if __name__ == "__main__":
    main()
