#!/usr/bin/perl
# The ticker scan as a Perl program: reads a page from the first file, writes the tickers behind the
# prefix that is given third to the second one, a line each, and prints the seconds that one scan
# took. Starting Perl and reading the file are not counted.
use strict;
use warnings;
use Time::HiRes qw(time);

my ($input, $output, $prefix, $end_mark, $rounds) = @ARGV;
my $page = do { local $/; open my $file, '<:raw', $input or die "$input: $!"; <$file> };

sub scan {
    my ($text, $before) = @_;
    my $at = index $$text, $before;
    while ($at < 0 && length $before >= 2) {
        $before = substr $before, 1;
        $at = index $$text, $before;
    }
    my (@list, %listed);
    while ($at >= 0) {
        my $end = index $$text, $end_mark, $at;
        last if $end < 0;
        my $from = $at + length $before;
        if ($end >= $from && $end - $from <= 7) {
            my $candidate = substr $$text, $from, $end - $from;
            if (!$listed{$candidate} && $candidate !~ /[0-9]/) {
                push @list, uc $candidate;
                $listed{ $list[-1] } = 1;
            }
        }
        $at = index $$text, $before, $from;
    }
    return \@list;
}

my $found;
my $started = time;
$found = scan(\$page, $prefix) for 1 .. $rounds;
printf "%.9f\n", (time - $started) / $rounds;

open my $file, '>:raw', $output or die "$output: $!";
print $file map { "$_\n" } @$found;
close $file or die "$output: $!";
