#include "cli/language/language.h"

namespace kivcli {
namespace {

constexpr Translation kRows[] = {
    {L"a conversion specification is a file *.cvt", L"変換指定ファイルは *.cvt です"},
    {L"%1, %2; %3", L"%1、%2。%3"},
    {L"1 setting", L"設定 1 個"},
    {L"%1 settings", L"設定 %1 個"},
    {L"1 list entry", L"一覧の項目 1 個"},
    {L"%1 list entries", L"一覧の項目 %1 個"},
    {L"every line is understood", L"すべての行を読み取りました"},
    {L"no line is dropped", L"読み捨てた行はありません"},
    {L"1 line is dropped", L"1 行を読み捨てました"},
    {L"%1 lines are dropped", L"%1 行を読み捨てました"},
    {L"dropped", L"読み捨て"},
    {L"warning", L"警告"},
    {L"cannot be used", L"使えません"},
    {L"also tell of layers, linetypes and text styles that these drawings, and those in the folder, lack or "
     L"do not use; may be given more than once",
     L"これらの図面 (フォルダーならその中の図面) "
     L"にない、または使われていない画層・線種・文字スタイルも知らせます。何度でも指定できます"},
    {L"print what is found as JSON", L"結果を JSON で表示します"},
    {L"write there and leave the file as it is", L"元のファイルはそのままにして、こちらに書き出します"},
    {L"write nothing; name the files that would be written otherwise",
     L"何も書き出さず、書き直されるはずのファイルを知らせます"},
    {L"also write files of which lines that do nothing get lost",
     L"働きのない行が失われるファイルも書き出します"},
    {L"the CVT file that is written", L"書き出す CVT ファイル"},
    {L"please name the CVT files to format", L"整形する CVT ファイルを指定してください"},
    {L"nothing is written with --check", L"--check では何も書き出しません"},
    {L"one file is written; please name one CVT file",
     L"書き出すファイルは 1 つです。CVT ファイルを 1 つだけ指定してください"},
    {L"please name two drawings: one before and one after it was converted by hand",
     L"手作業で変換する前と後の 2 つの図面を指定してください"},
    {L"please name the CVT file that is to be written: --out NEW.cvt",
     L"書き出す CVT ファイルを指定してください: --out NEW.cvt"},
    {L"Names are held against drawings only where --drawings names some. What a setting, or a list of the "
     L"file, writes itself counts as there.",
     L"名前を図面と照合するのは --drawings "
     L"で図面を指定したときだけです。設定やファイル内の一覧が自ら書き込む名前は、あるものとみなします。"},
    {L"writes CVT files in the form in which the dialog saves them, in place or to another file",
     L"CVT ファイルをダイアログが保存する形に書き直します (元のファイル、または別のファイルへ)"},
    {L"What the reader keeps stays as it is. A file of which lines would be lost is left alone, and they are "
     L"named.",
     L"読み取られた内容は変わりません。行が失われるファイルには手を付けず、その行を知らせます。"},
    {L"finds the rules that convert a drawing as somebody did by hand: A before it, B after it",
     L"手作業での変換の前 (A) と後 (B) の図面から、同じ変換をする規則を見つけます"},
    {L"A is converted with the new CVT file at once, and every change that the rules do not make is named. "
     L"The exit status is 1 when there are any.",
     L"新しい CVT ファイルで A "
     L"をその場で変換し、規則では行われない変更をすべて知らせます。そのような変更があると終了ステータスは 1 "
     L"です。"},
    {L"no drawing stands in this folder", L"このフォルダーには図面がありません"},
    {L"%1: not in the form of the dialog", L"%1: ダイアログが保存する形になっていません"},
    {L"%1: written", L"%1: 書き出しました"},
    {L"these lines would be lost or would say what they are read as; nothing is written without --drop",
     L"これらの行が失われるか、読み取られた値に書き換わります。--drop を付けないと書き出しません"},
    {L"nothing differs from %1, so there is nothing to learn",
     L"%1 と違うところがないため、学ぶことがありません"},
    {L"learned from %1 and %2", L"%1 と %2 から作成"},
    {L"the conversion by the learned rules did not run", L"見つけた規則による変換が実行されませんでした"},
    {L"%1 and %2 explain %3 of %4 changes (%5 %)", L"%1と%2で、変更 %4 件中 %3 件 (%5 %) を説明できます"},
    {L"to be converted with%1", L"変換には%1 を付けてください"},
    {L"not explained: %1", L"説明できない変更: %1"},
    {L"not explained: %1; the rules make it %2", L"説明できない変更: %1。規則では %2 になります"},
    {L"not written: no rule was found", L"規則が見つからないため、書き出しません"},
    {L"entities that differ", L"異なる図形"},
    {L"done by the rules and not by hand: %1", L"規則では行われるが手作業では行われていない変更: %1"},
};

}  // namespace

std::span<const Translation> japaneseOfSpecifications() { return kRows; }

}  // namespace kivcli
