#!/usr/bin/env python3
"""Statistics of a recorded market, one plot each, beside those of other recordings.

    plot_statistics.py RECORDING [--symbol SYMBOL] [--beside NAME=RECORDING]... [--out FOLDER]

writes market-spread.png, market-levels.png, market-trades.png and market-volatility.png and prints
the figures. A recording that has too little of something is left out of that plot. Needs Debian's
python3-matplotlib.
"""

import argparse
import bisect
import json
import math
import pathlib
import sys
from statistics import fmean

LEVELS = 10
BID_PRICE, ASK_PRICE, SPREAD_CODE, BOARD_LOT = "1", "2", "73", "24"
BID_SIZES = ["16", "51", "52", "53", "54", "3155", "3156", "3157", "3158", "3159"]
ASK_SIZES = ["19", "61", "62", "63", "64", "3165", "3166", "3167", "3168", "3169"]
TRADING = [(9.5 * 3600, 12 * 3600), (13 * 3600, 16 * 3600)]  # not the auctions
RETURN_SECONDS = 30
LAGS = 20
LEAST_RETURNS = 200
LEAST_TRADES = 100


def seconds(text):
    hours, minutes, rest = text.split(":")
    return int(hours) * 3600 + int(minutes) * 60 + float(rest)


def number(text):
    try:
        return float(text)
    except (TypeError, ValueError):
        return None


class Steps:
    """The price steps of a spread table: from < price <= to."""

    def __init__(self, bands):
        self.ends = [band[1] for band in bands]
        self.steps = [band[2] for band in bands]

    def between(self, low, high):
        """How many steps lie between two prices."""
        band = min(bisect.bisect_left(self.ends, (low + high) / 2), len(self.steps) - 1)
        return round((high - low) / self.steps[band])


class Market:
    """What one symbol of a recording was like; times in seconds."""

    def __init__(self, name):
        self.name = name
        self.spreads = {}  # ticks -> seconds
        self.levels = [0.0] * LEVELS  # size x seconds
        self.level_seconds = [0.0] * LEVELS
        self.trades = []  # quantities
        self.middles = []  # (time, price)
        self.lot = 1.0

    def watch(self, fields, steps, since, until):
        """The record stood like this for a while."""
        bid, ask = number(fields.get(BID_PRICE)), number(fields.get(ASK_PRICE))
        if not bid or not ask or bid >= ask:
            return
        length = until - since
        ticks = steps.between(bid, ask)
        self.spreads[ticks] = self.spreads.get(ticks, 0.0) + length
        for level in range(LEVELS):
            for side in (BID_SIZES, ASK_SIZES):
                size = number(fields.get(side[level]))
                if size is not None:
                    self.levels[level] += size * length
                    self.level_seconds[level] += length
        self.middles.append((since, (bid + ask) / 2))

    # What the plots show

    def spread_shares(self, most):
        """Share of time at 1 to most - 1 ticks, and at most ticks or more."""
        whole = sum(self.spreads.values())
        shares = [self.spreads.get(ticks, 0.0) / whole for ticks in range(1, most)]
        return shares + [1 - sum(shares)]

    def mean_spread(self):
        whole = sum(self.spreads.values())
        return sum(ticks * length for ticks, length in self.spreads.items()) / whole

    def level_sizes(self):
        """Mean size by level, as a multiple of the mean over all levels; none without depth."""
        if min(self.level_seconds) == 0:
            return None
        sizes = [size / length for size, length in zip(self.levels, self.level_seconds)]
        mean = fmean(sizes)
        return [size / mean for size in sizes]

    def trade_tail(self):
        """Pairs of a size in multiples of the mean and the share of trades above it."""
        if len(self.trades) < LEAST_TRADES:
            return None
        mean = fmean(self.trades)
        ordered = sorted(self.trades)
        points = {}
        for place, size in enumerate(ordered):
            points[size / mean] = 1 - (place + 1) / len(ordered)
        return [(size, share) for size, share in points.items() if share > 0]

    def tail_exponent(self):
        """Hill's estimate from the largest twentieth of the trades."""
        ordered = sorted(self.trades, reverse=True)
        count = len(ordered) // 20
        base = ordered[count]
        return count / sum(math.log(size / base) for size in ordered[:count])

    def returns(self):
        """Logarithmic returns of the middle price over equal times, none across a pause."""
        moves = []
        for start, end in TRADING:
            prices = self.prices_at(start, end)
            moves.extend(math.log(later / price) for price, later in zip(prices, prices[1:]))
        return moves

    def prices_at(self, start, end):
        times = [time for time, _ in self.middles]
        if not times:
            return []
        prices, time = [], max(start, times[0])
        while time <= min(end, times[-1]):
            prices.append(self.middles[bisect.bisect_right(times, time) - 1][1])
            time += RETURN_SECONDS
        return prices

    def clustering(self):
        """Autocorrelation of the absolute returns by lag; none when there are few."""
        sizes = [abs(move) for move in self.returns()]
        if len(sizes) < LEAST_RETURNS:
            return None
        mean = fmean(sizes)
        deviations = [size - mean for size in sizes]
        variance = sum(each * each for each in deviations)
        return [sum(each * later for each, later in zip(deviations, deviations[lag:])) / variance
                for lag in range(1, LAGS + 1)]


def events(path, symbol):
    """The header's spread tables, then the symbol's lines."""
    with open(path, encoding="utf-8") as lines:
        header = json.loads(next(lines))
        yield header["spreads"]
        marker = f'"s":"{symbol}"' if symbol else '"s":'
        for line in lines:
            if marker in line:
                yield json.loads(line)


def read(name, path, symbol):
    """Without a symbol, the recording has but one."""
    market, fields = Market(name), {}
    lines = events(path, symbol)
    spreads = next(lines)
    steps, since = None, None
    for event in lines:
        now = seconds(event["t"])
        if not any(start <= now <= end for start, end in TRADING):
            fields.update(event.get("f", {}))
            since = None
            continue
        if steps is not None and since is not None and now > since:
            market.watch(fields, steps, since, now)
        since = now
        fields.update(event.get("f", {}))
        if steps is None and fields.get(SPREAD_CODE):
            steps = Steps(spreads[fields[SPREAD_CODE]]["bands"])
            market.lot = number(fields.get(BOARD_LOT)) or 1.0
        if "trade" in event:
            market.trades.append(float(event["trade"]["qty"]))
    return market


def figures(market):
    shares = market.spread_shares(6)
    print(f"{market.name}")
    print(f"  spread: mean {market.mean_spread():.2f} ticks; 1 to 5 and more, per cent of time: "
          + " ".join(f"{100 * share:.1f}" for share in shares))
    sizes = market.level_sizes()
    if sizes:
        print("  size by level, mean 1: " + " ".join(f"{size:.2f}" for size in sizes))
    if market.trade_tail():
        ordered = sorted(market.trades)
        at = [ordered[int(part * len(ordered))] for part in (0.5, 0.9, 0.99, 0.999)]
        print(f"  trades: {len(ordered)}; quantiles 50, 90, 99, 99.9 per cent in lots of "
              f"{market.lot:g}: " + " ".join(f"{size / market.lot:g}" for size in at)
              + f"; tail exponent {market.tail_exponent():.2f}")
    correlations = market.clustering()
    if correlations:
        moves = market.returns()
        square = fmean(move ** 2 for move in moves)
        fourth = fmean(move ** 4 for move in moves)
        print(f"  {len(moves)} returns of {RETURN_SECONDS} s: kurtosis {fourth / square ** 2:.1f}; "
              "autocorrelation of absolute returns, lags 1, 5, 10, 20: "
              + " ".join(f"{correlations[lag - 1]:.2f}" for lag in (1, 5, 10, 20)))


def plot(file, title, x_label, y_label, draw):
    from matplotlib import pyplot
    drawing, axes = pyplot.subplots(figsize=(6.4, 4), dpi=110)
    draw(axes)
    axes.set(title=title, xlabel=x_label, ylabel=y_label)
    axes.legend(frameon=False)
    axes.spines[["top", "right"]].set_visible(False)
    drawing.tight_layout()
    drawing.savefig(file)
    pyplot.close(drawing)


def draw_spreads(axes, markets, most=10):
    width = 0.8 / len(markets)
    for place, market in enumerate(markets):
        shares = market.spread_shares(most)
        axes.bar([ticks + (place - (len(markets) - 1) / 2) * width
                  for ticks in range(1, most + 1)], shares, width, label=market.name)
    axes.set_xticks(range(1, most + 1), [*map(str, range(1, most)), f"{most}+"])


def draw_levels(axes, markets):
    for market in markets:
        sizes = market.level_sizes()
        if sizes:
            axes.plot(range(1, LEVELS + 1), sizes, marker="o", label=market.name)
    axes.set_xticks(range(1, LEVELS + 1))
    axes.set_ylim(bottom=0)


def draw_trades(axes, markets):
    for market in markets:
        tail = market.trade_tail()
        if tail:
            axes.loglog(*zip(*tail), label=market.name)
    sizes = [10 ** (exponent / 20) for exponent in range(-20, 19)]
    axes.loglog(sizes, [math.exp(-size) for size in sizes], "k:", label="exponential")
    axes.set_ylim(bottom=1e-5)


def draw_volatility(axes, markets):
    for market in markets:
        correlations = market.clustering()
        if correlations:
            axes.plot([lag * RETURN_SECONDS for lag in range(1, LAGS + 1)], correlations,
                      marker="o", markersize=3, label=market.name)
    axes.axhline(0, color="black", linewidth=0.8)


def plots(folder, markets):
    plot(folder / "market-spread.png", "Spread", "ticks", "share of time",
         lambda axes: draw_spreads(axes, markets))
    plot(folder / "market-levels.png", "Size by level", "level", "mean size, relative",
         lambda axes: draw_levels(axes, markets))
    plot(folder / "market-trades.png", "Trade sizes", "size / mean size", "share of trades above",
         lambda axes: draw_trades(axes, markets))
    plot(folder / "market-volatility.png", "Volatility clustering", "lag in seconds",
         f"autocorrelation of absolute {RETURN_SECONDS} s returns",
         lambda axes: draw_volatility(axes, markets))


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("recording")
    parser.add_argument("--symbol", action="append", help="of the recording (700); may be repeated")
    parser.add_argument("--beside", action="append", default=[], metavar="NAME=RECORDING",
                        help="a recording of one symbol to show beside it")
    parser.add_argument("--out", type=pathlib.Path, help="folder for the plots; none without it")
    arguments = parser.parse_args()
    markets = [read(f"{symbol}, simulated", arguments.recording, symbol)
               for symbol in arguments.symbol or ["700"]]
    for beside in arguments.beside:
        name, _, path = beside.partition("=")
        markets.append(read(name, path, None))
    empty = [market.name for market in markets if not market.spreads]
    if empty:
        sys.exit(f"There is no book of {', '.join(empty)} in the recording.")
    for market in markets:
        figures(market)
    if arguments.out:
        plots(arguments.out, markets)


if __name__ == "__main__":
    main()
