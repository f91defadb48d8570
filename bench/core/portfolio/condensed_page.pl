#!/usr/bin/perl
# The replacements of the condensed page as a Perl program: reads an answer of the portal from the
# first file, writes the table with everything replaced to the second one, and prints the seconds
# of processor time that one page took. Starting Perl and reading the file are not counted.
use strict;
use warnings;
use Time::HiRes qw(clock);

my ($input, $output, $rounds) = @ARGV;
my $body = do { local $/; open my $file, '<:raw', $input or die "$input: $!"; <$file> };

my $font = '<font face="Times New Roman" size="1">';
my @replacements = (
    ['valign=bottom',         'valign=top'],
    ['100%',                  '1%'],
    ['<p>',                   ''],
    ['border=1',              'border=0'],
    ['<td nowrap>',           "<td nowrap>$font"],
    ['<td nowrap colspan=2>', "<td nowrap colspan=2>$font"],
    ['<td nowrap colspan=7>', "<td nowrap colspan=6>$font"],
    ['<td nowrap rowspan=3',  '</tr><tr><td nowrap colspan=6 align="center"'],
    ['</td>',                 '</font></td>'],
    ['>/<',                   '><'],
    [',',                     ''],
    ['Avg Vol',               'AvgVol'],
    ['week Range',            'week'],
    ['Earn/Shr',              'E/Sh'],
    ['Mkt Cap',               'MktCap'],
    ['Div/Shr',               'Div'],
    ["Day's",                 'Day'],
    ['Prev Cls',              'PrevCls'],
    ['"/q?s=',                '"http://server.test/q?s='],
);

sub condense {
    my $text = shift;
    my $start = index $text, '<table border=1 width="100%" cellpadding=0 cellspacing=0>';
    $text = substr $text, $start, index($text, 'Quotes delayed 15', $start) - $start;
    $text =~ s/- More Info:.*?(?=<\/td>)//gs;
    $text =~ s/<small>Small.*?(?=<\/td>)//gs;
    $text =~ s/<td nowrap>Div Date.*?<\/td>//gs;
    $text =~ s/<td nowrap>Ex-Div.*?<\/td>//gs;
    $text =~ s/<td nowrap>Yield.*?<\/td>//gs;
    for my $pair (@replacements) {
        my ($find, $replacement) = @$pair;
        $text =~ s/\Q$find\E/$replacement/g;
    }
    my ($break, $dot) = (index($text, "<br>\n"), index($text, '&#183'));
    if ($dot >= 0 && $break > $dot) {
        my $removed = substr $text, $dot + 5, $break - $dot + 1;
        $text =~ s/\Q$removed\E//g;
    }
    my $column = 0;
    $text =~ s{<table bor}{
        ($column++ % 3 == 0 ? '</td></tr><tr height=15><tr></table><table><tr><td>'
                            : '</td><td witdh=5></td><td>') . '<table bor'}ge;
    return '<body topmargin="0" leftmargin="0"><a href="http://portal.test/">'
        . '<img src="http://portal.test/logo.gif" border="0"></a><br>'
        . substr($text, 36) . substr($text, 0, 36) . '</body>';
}

my $page;
my $started = clock;
$page = condense($body) for 1 .. $rounds;
printf "%.9f\n", (clock() - $started) / $rounds;

open my $file, '>:raw', $output or die "$output: $!";
print $file $page;
close $file or die "$output: $!";
