# Prints what is in Excel files, one thing a line, as Spreadsheet::ParseExcel reads them.
use strict;
use warnings FATAL => 'all';
use open qw(:std :encoding(UTF-8));
use Encode qw(decode);
use Spreadsheet::ParseExcel;

my @across = ('general', 'left', 'centre', 'right');
my @down = ('top', 'middle', 'bottom');
my %lines = (0 => 0, 1 => 1, 2 => 2, 5 => 3);

sub shown {
    my ($text) = @_;
    $text =~ s/\\/\\\\/g;
    $text =~ s/\n/\\n/g;
    $text =~ s/\t/\\t/g;
    return $text;
}

sub colour {
    my ($book, $index, $none) = @_;
    return $index >= 8 && $index < 64 ? lc $book->color_idx_to_rgb($index) : $none;
}

sub look {
    my ($book, $format) = @_;
    my $font = $format->{Font};
    my $line = $lines{$format->{BdrStyle}[0]};
    my $filled = $format->{Fill}[0] == 1;
    return join '/', $font->{Name}, int $font->{Height}, $font->{Bold} ? 'bold' : 'regular',
      colour($book, $font->{Color}, 'auto'),
      $filled ? colour($book, $format->{Fill}[1], '?') : 'none',
      $across[$format->{AlignH}], $down[$format->{AlignV}],
      $format->{Wrap} ? 'wrap' : 'line',
      $format->{FmtIdx} == 49 ? '@' : 'General', $line,
      $line ? colour($book, $format->{BdrColor}[0], '?') : 'none';
}

sub print_page {
    my ($book, $sheet, $number) = @_;
    my @margins = map { sprintf '%.3f', $_ } $sheet->get_margin_left, $sheet->get_margin_top,
      $sheet->get_margin_right, $sheet->get_margin_bottom;
    my $titles = $book->get_print_titles ? $book->get_print_titles->[$number] : undef;
    my $repeated = $titles && $titles->{Row} ? join('-', map { ref $_ ? @$_ : $_ } @{$titles->{Row}}) : 'none';
    print join("\t", 'page', $sheet->is_portrait ? 'portrait' : 'landscape', $sheet->get_paper,
        $sheet->{PageFit} ? 'fit' : 'free', @margins, $sheet->get_footer, $repeated), "\n";
}

sub print_cells {
    my ($book, $sheet) = @_;
    my ($first, $last) = $sheet->row_range;
    my ($left, $right) = $sheet->col_range;
    for my $row ($first .. $last) {
        for my $col ($left .. $right) {
            my $cell = $sheet->get_cell($row, $col) or next;
            my $isText = $cell->type eq 'Text';
            my $value = $isText ? $cell->unformatted : $cell->{Val};
            $value = sprintf '%.17g', $value if !$isText && $value ne '';
            $value = decode('UTF-16BE', $value) if ($cell->{Code} // '') eq 'ucs2';
            my $kind = $value eq '' ? 'blank' : $isText ? 'text' : 'number';
            print join("\t", 'cell', $row, $col, $kind, shown($value),
                look($book, $cell->get_format)), "\n";
        }
    }
}

for my $path (@ARGV) {
    my $parser = Spreadsheet::ParseExcel->new;
    my $book = $parser->parse($path) or die $parser->error;
    my $number = 0;
    for my $sheet ($book->worksheets) {
        print "sheet\t", shown($sheet->get_name), "\n";
        print_page($book, $sheet, $number++);
        print_cells($book, $sheet);
    }
}
