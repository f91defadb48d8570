#!/usr/bin/env python3
"""Writes sample_market.txt, the market that the built-in portal shows in sample mode.

The tickers and names are well known; every price is invented: a random walk from a fixed seed,
scaled so that it ends near the given magnitude. The same file comes out on every machine, since
only additions, multiplications and divisions of doubles are used.

Usage: make_sample_market.py [OUTPUT]   (default: sample_market.txt beside this script)
"""

import pathlib
import random
import sys

SEED = 20261121
DAYS = 253

# Symbol, name, magnitude of the last price, millions of shares, daily movement in percent.
SHARES = """
A|Agilent Technologies|130|285|1.6
AA|Alcoa|38|259|2.6
AAPL|Apple|225|15100|1.5
ABBV|AbbVie|190|1766|1.3
ABNB|Airbnb|130|630|2.2
ABT|Abbott Laboratories|118|1735|1.2
ACN|Accenture|345|625|1.4
ADBE|Adobe|500|440|1.8
ADI|Analog Devices|220|496|1.9
ADM|Archer-Daniels-Midland|55|478|1.6
ADP|Automatic Data Processing|295|408|1.1
ADSK|Autodesk|300|215|1.7
AEP|American Electric Power|98|532|1.1
AFL|Aflac|108|556|1.1
AIG|American International Group|76|636|1.3
AMAT|Applied Materials|185|825|2.2
AMD|Advanced Micro Devices|140|1623|2.8
AMGN|Amgen|315|537|1.3
AMT|American Tower|205|467|1.4
AMZN|Amazon.com|200|10500|1.8
AOL|America Online|48|2200|2.9
APD|Air Products and Chemicals|310|222|1.4
AVGO|Broadcom|175|4670|2.5
AXP|American Express|285|705|1.5
AZO|AutoZone|3150|17|1.2
BA|Boeing|150|618|2.1
BAC|Bank of America|44|7670|1.5
BAX|Baxter International|33|511|1.6
BBY|Best Buy|88|214|2.0
BDX|Becton Dickinson|225|290|1.2
BF.B|Brown-Forman Class B|42|303|1.6
BIIB|Biogen|160|146|1.7
BK|Bank of New York Mellon|77|727|1.3
BKNG|Booking Holdings|4900|33|1.6
BLK|BlackRock|1020|155|1.4
BMY|Bristol-Myers Squibb|57|2028|1.4
BRK.A|Berkshire Hathaway Class A|690000|0.55|0.9
BRK.B|Berkshire Hathaway Class B|460|1325|0.9
BSX|Boston Scientific|89|1474|1.3
C|Citigroup|69|1891|1.7
CAT|Caterpillar|385|483|1.7
CB|Chubb|280|403|1.1
CCL|Carnival|24|1166|2.8
CHTR|Charter Communications|390|142|2.1
CI|Cigna|330|278|1.4
CL|Colgate-Palmolive|93|817|1.0
CMCSA|Comcast|43|3816|1.5
CME|CME Group|230|360|1.1
CMG|Chipotle Mexican Grill|60|1363|1.9
COF|Capital One Financial|185|382|1.8
COP|ConocoPhillips|112|1151|1.6
COST|Costco Wholesale|920|443|1.2
CPB|Campbell's|45|298|1.3
CRM|Salesforce|325|956|2.0
CSCO|Cisco Systems|58|3983|1.3
CSX|CSX|35|1928|1.4
CVS|CVS Health|57|1258|1.9
CVX|Chevron|158|1797|1.4
D|Dominion Energy|58|839|1.2
DAL|Delta Air Lines|64|645|2.2
DD|DuPont|83|418|1.5
DE|Deere|400|273|1.6
DELL|Dell Technologies|130|700|2.7
DG|Dollar General|76|220|2.2
DHR|Danaher|235|722|1.5
DIS|Walt Disney|113|1811|1.6
DOW|Dow|44|700|1.6
DUK|Duke Energy|114|772|1.0
EA|Electronic Arts|165|262|1.4
EBAY|eBay|63|479|1.7
ECL|Ecolab|245|283|1.2
ED|Consolidated Edison|97|346|1.0
EFX|Equifax|260|124|1.7
EL|Estee Lauder|65|359|2.5
EMR|Emerson Electric|128|570|1.6
EOG|EOG Resources|132|562|1.6
EQIX|Equinix|920|96|1.5
ETN|Eaton|370|395|1.8
EXC|Exelon|39|1005|1.1
F|Ford Motor|11|3974|2.0
FCX|Freeport-McMoRan|44|1437|2.3
FDX|FedEx|300|241|1.9
FIS|Fidelity National Information Services|86|538|1.5
FOXA|Fox Class A|45|229|1.5
FSLR|First Solar|190|107|3.2
GD|General Dynamics|285|275|1.1
GE|General Electric|178|1082|1.7
GILD|Gilead Sciences|90|1246|1.4
GIS|General Mills|64|551|1.1
GLW|Corning|47|856|1.7
GM|General Motors|56|1100|2.0
GOOG|Alphabet Class C|178|5600|1.7
GOOGL|Alphabet Class A|176|5843|1.7
GS|Goldman Sachs|595|314|1.7
GT|Goodyear Tire & Rubber|10|286|2.7
HAL|Halliburton|31|878|1.9
HAS|Hasbro|64|139|1.7
HD|Home Depot|405|993|1.3
HES|Hess|147|308|1.5
HIG|Hartford Financial|118|290|1.2
HON|Honeywell International|228|650|1.1
HPQ|HP|37|964|1.8
HSY|Hershey|175|202|1.3
HUM|Humana|290|120|2.1
IBM|International Business Machines|212|925|1.4
ICE|Intercontinental Exchange|157|574|1.1
INTC|Intel|24|4313|2.7
INTU|Intuit|640|280|1.7
IP|International Paper|57|347|1.8
ISRG|Intuitive Surgical|540|356|1.7
ITW|Illinois Tool Works|270|295|1.1
JNJ|Johnson & Johnson|155|2407|1.0
JPM|JPMorgan Chase|245|2815|1.4
K|Kellanova|81|345|1.0
KEY|KeyCorp|18|991|1.8
KHC|Kraft Heinz|31|1209|1.2
KMB|Kimberly-Clark|136|333|1.0
KO|Coca-Cola|63|4308|0.9
KR|Kroger|59|724|1.3
LEN|Lennar|170|240|1.9
LLY|Eli Lilly|760|949|1.9
LMT|Lockheed Martin|530|237|1.1
LOW|Lowe's|265|565|1.4
LUV|Southwest Airlines|32|600|2.0
LYB|LyondellBasell|84|325|1.5
M|Macy's|16|277|2.7
MA|Mastercard|520|918|1.2
MAR|Marriott International|280|278|1.4
MAT|Mattel|19|337|1.9
MCD|McDonald's|292|717|1.1
MCK|McKesson|620|127|1.3
MCO|Moody's|475|181|1.3
MDLZ|Mondelez International|65|1337|1.1
MDT|Medtronic|87|1282|1.1
MET|MetLife|83|692|1.4
META|Meta Platforms|560|2180|2.0
MMC|Marsh & McLennan|224|491|1.0
MMM|3M|129|545|1.5
MO|Altria|56|1695|1.0
MRK|Merck|98|2530|1.3
MRNA|Moderna|38|385|3.6
MRVL|Marvell Technology|90|866|3.0
MS|Morgan Stanley|132|1611|1.6
MSFT|Microsoft|420|7433|1.3
MSI|Motorola Solutions|490|167|1.2
MTCH|Match Group|32|251|2.4
MU|Micron Technology|100|1109|2.9
NEE|NextEra Energy|77|2056|1.5
NEM|Newmont|43|1138|2.0
NFLX|Netflix|870|427|2.0
NKE|Nike|76|1491|1.8
NOC|Northrop Grumman|500|146|1.1
NOW|ServiceNow|1030|206|1.9
NSC|Norfolk Southern|262|226|1.4
NUE|Nucor|148|235|2.0
NVDA|NVIDIA|142|24490|2.8
ORCL|Oracle|188|2771|1.9
OXY|Occidental Petroleum|51|938|1.7
PARA|Paramount|11|666|2.6
PCG|PG&E|21|2139|1.4
PEP|PepsiCo|161|1372|1.0
PFE|Pfizer|25|5667|1.5
PG|Procter & Gamble|170|2355|0.9
PGR|Progressive|258|586|1.3
PLTR|Palantir Technologies|62|2278|3.6
PM|Philip Morris International|128|1555|1.1
PNC|PNC Financial Services|205|397|1.5
PPG|PPG Industries|122|232|1.4
PRU|Prudential Financial|126|356|1.4
PSX|Phillips 66|132|413|1.7
PYPL|PayPal|85|1003|2.1
QCOM|Qualcomm|158|1111|2.1
REGN|Regeneron Pharmaceuticals|745|108|1.7
RTX|RTX|119|1331|1.2
SBUX|Starbucks|98|1134|1.7
SCHW|Charles Schwab|81|1830|1.6
SHW|Sherwin-Williams|380|252|1.4
SLB|Schlumberger|43|1412|1.8
SNOW|Snowflake|150|330|3.2
SO|Southern|88|1096|1.0
SPG|Simon Property Group|180|326|1.4
SPGI|S&P Global|505|310|1.2
SQ|Block|88|619|3.0
STT|State Street|97|293|1.5
STZ|Constellation Brands|238|181|1.3
SWK|Stanley Black & Decker|89|154|1.8
SYK|Stryker|385|381|1.3
SYY|Sysco|74|491|1.1
T|AT&T|23|7175|1.2
TAP|Molson Coors Class B|60|206|1.4
TFC|Truist Financial|46|1327|1.7
TGT|Target|130|458|1.9
TJX|TJX|120|1124|1.2
TMO|Thermo Fisher Scientific|525|382|1.4
TMUS|T-Mobile US|238|1160|1.2
TRV|Travelers|262|227|1.3
TSLA|Tesla|330|3210|3.4
TSN|Tyson Foods|63|356|1.5
TXN|Texas Instruments|200|912|1.7
UAL|United Airlines|94|329|2.7
UBER|Uber Technologies|71|2106|2.3
UNH|UnitedHealth|590|920|1.4
UNP|Union Pacific|238|606|1.2
UPS|United Parcel Service|133|854|1.5
USB|U.S. Bancorp|51|1560|1.6
V|Visa|310|1950|1.1
VLO|Valero Energy|142|317|1.9
VRTX|Vertex Pharmaceuticals|460|258|1.6
VZ|Verizon Communications|42|4210|1.2
WBA|Walgreens Boots Alliance|9|864|2.8
WBD|Warner Bros. Discovery|10|2453|2.8
WDC|Western Digital|65|346|2.5
WFC|Wells Fargo|74|3330|1.6
WHR|Whirlpool|110|55|2.1
WM|Waste Management|222|401|1.0
WMT|Walmart|87|8038|1.2
WY|Weyerhaeuser|31|727|1.5
X|United States Steel|39|225|2.4
XOM|Exxon Mobil|120|4395|1.4
XRX|Xerox|9|124|2.9
YHOO|Yahoo!|41|950|2.4
YUM|Yum! Brands|134|279|1.2
ZM|Zoom|84|306|2.1
DIA|SPDR Dow Jones Industrial Average ETF|435|85|0.8
EEM|iShares MSCI Emerging Markets ETF|43|440|1.1
EFA|iShares MSCI EAFE ETF|77|690|0.9
GLD|SPDR Gold Shares|246|300|1.0
HYG|iShares High Yield Corporate Bond ETF|79|200|0.4
IWM|iShares Russell 2000 ETF|235|310|1.4
LQD|iShares Investment Grade Bond ETF|110|275|0.5
MDY|SPDR S&P MidCap 400 ETF|600|40|1.1
QQQ|Invesco QQQ Trust|505|610|1.2
SLV|iShares Silver Trust|28|520|1.8
SPY|SPDR S&P 500 ETF|590|1050|0.8
TLT|iShares 20+ Year Treasury Bond ETF|91|620|1.0
USO|United States Oil Fund|72|18|2.0
VNQ|Vanguard Real Estate ETF|95|370|1.1
VTI|Vanguard Total Stock Market ETF|292|1500|0.9
VWO|Vanguard Emerging Markets ETF|45|1800|1.1
XLE|Energy Select Sector SPDR|94|390|1.4
XLF|Financial Select Sector SPDR|50|930|1.0
XLK|Technology Select Sector SPDR|232|315|1.4
^NYA|NYSE Composite|19800|0|0.8
^SPC|S&P 500|5950|0|0.8
^OEX|S&P 100|2880|0|0.9
^TYX|30-Year Treasury Yield|46.2|0|1.3
^DJI|Dow Jones Industrial Average|43900|0|0.7
^IXIC|NASDAQ Composite|19100|0|1.1
^RUT|Russell 2000|2370|0|1.4
^DJT|Dow Jones Transportation Average|17300|0|1.2
"""

# A second symbol for the same thing.
ALIASES = {"^GSPC": "^SPC"}

HEADER = """\
# INVENTED PRICES. Nothing in this file was ever quoted anywhere: it is a random walk from a fixed
# seed, written by make_sample_market.py, for showing the program without a network.
# One line each: symbol|name|number of shares|daily closes, oldest first
"""


def walk(generator, magnitude, movement):
    """A year of closes; twelve uniform numbers make a bell-shaped one without any library."""
    price, closes = 1.0, []
    for _ in range(DAYS):
        bell = sum(generator.random() for _ in range(12)) - 6.0
        price *= 1.0 + (movement * bell + 0.04) / 100.0
        closes.append(price)
    scale = magnitude * (0.95 + 0.1 * generator.random()) / closes[-1]
    return [close * scale for close in closes]


def main():
    here = pathlib.Path(__file__).resolve().parent
    output = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else here / "sample_market.txt"
    generator = random.Random(SEED)
    rows = {}
    for line in SHARES.strip().splitlines():
        symbol, name, magnitude, millions, movement = line.split("|")
        closes = walk(generator, float(magnitude), float(movement))
        text = " ".join(f"{max(close, 0.01):.2f}" for close in closes)
        rows[symbol] = (name, round(float(millions) * 1_000_000), text)
    for alias, symbol in ALIASES.items():
        rows[alias] = rows[symbol]
    lines = [f"{symbol}|{name}|{shares}|{text}\n" for symbol, (name, shares, text) in rows.items()]
    output.write_bytes((HEADER + "".join(lines)).encode("ascii"))


if __name__ == "__main__":
    main()
