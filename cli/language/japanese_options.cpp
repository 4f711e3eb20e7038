#include "cli/language/language.h"

namespace kivcli {
namespace {

constexpr Translation kRows[] = {
    // the command line
    {L"please say what to do: %1", L"何をするか指定してください: %1"},
    {L"there is no such call; the calls are %1",
     L"このようなサブコマンドはありません。サブコマンドは %1 です"},
    {L"there is no such call; `kivcvt help` lists them",
     L"このようなサブコマンドはありません。`kivcvt help` で一覧を表示します"},
    {L"please name one call", L"サブコマンドを 1 つ指定してください"},
    {L"this call takes no files", L"このサブコマンドはファイルを取りません"},
    {L"there is no such option here; `kivcvt help %1` lists them",
     L"ここではこのオプションは使えません。`kivcvt help %1` で一覧を表示します"},
    {L"this option is given twice", L"このオプションが 2 回指定されています"},
    {L"this option takes no value", L"このオプションは値を取りません"},
    {L"this option needs a value after it", L"このオプションの後に値が必要です"},
    {L"please give a whole number from %1 to %2", L"%1 から %2 までの整数を指定してください"},
    {L"the name of a file is empty", L"ファイル名が空です"},
    {L"please name the drawings", L"図面を指定してください"},
    {L"please name the CVT files to check", L"確認する CVT ファイルを指定してください"},
    {L"please name the conversion specification: --spec FILE.cvt",
     L"変換指定ファイルを指定してください: --spec FILE.cvt"},
    {L"please name the folder for the converted drawings: --out DIR",
     L"変換した図面の保存先フォルダを指定してください: --out DIR"},
    {L"the format is dxf, dwg or dwt", L"形式は dxf、dwg、dwt のいずれかです"},
    {L"the scope is 0 (block references), 1 (their definitions) or 2 (both)",
     L"ブロックの扱いは 0（ブロック参照）、1（ブロック定義）、2（両方）のいずれかです"},
    {L"please give the part and the number of parts, for example 2/8",
     L"何番目か、全部でいくつかを指定してください（例: 2/8）"},
    // help
    {L"kivcvt converts CAD drawings by the rules of a conversion specification (a CVT file).",
     L"kivcvt は、変換指定ファイル（CVT ファイル）の規則に従って CAD の図面を変換します。"},
    {L"`kivcvt help CALL` lists the options of a call. \"--\" ends them: what follows are files.",
     L"`kivcvt help サブコマンド` "
     L"でサブコマンドのオプションを表示します。「--」より後はすべてファイル名とみなします。"},
    {L"Exit status: 0 all done; 1 some drawing failed or had a problem, lines of the CVT file are dropped, "
     L"or "
     L"the log or standard output cannot be written, each named on standard error; 2 the command line or the "
     L"CVT file is unusable; 130 interrupted. Drawings are read and written as DXF and DWG; each keeps its "
     L"format.",
     L"終了ステータス: 0 すべて完了。1 失敗した図面や問題のある図面がある、CVT ファイルに読み捨てた行がある、"
     L"ログまたは標準出力に書き込めない（いずれも標準エラー出力に表示します）。2 コマンドラインまたは CVT "
     L"ファイルが使えない。130 中断した。図面は DXF と DWG で読み書きし、形式は変わりません。"},
    {L"Examples:", L"例:"},
    {L"converts every drawing by the rules of a CVT file and saves it into DIR",
     L"各図面を CVT ファイルの規則に従って変換し、DIR に保存します"},
    {L"Files that the CVT file names are looked up beside it, linetype files and drawings of arrows then in "
     L"the "
     L"folders that KIV_SUPPORT_PATH in the environment lists (with \";\" between them) and in the program's "
     L"own.",
     L"CVT ファイルが名前を挙げるファイルは、CVT "
     L"ファイルのフォルダで探します。線種ファイルと矢印の図面は、続いて環境変数 "
     L"KIV_SUPPORT_PATH のフォルダ（「;」で区切ります）、プログラムのフォルダの順に探します。"},
    {L"tells version, code page, and counts of entities by type, layers, linetypes, text styles, blocks",
     L"バージョン、コードページ、種類ごとの図形数、画層、線種、字体、ブロックの数を表示します"},
    {L"says what the reader makes of a CVT file, and every line it drops, with line number and reason",
     L"CVT ファイルの読み取り結果と、読み捨てる行の行番号と理由を表示します"},
    {L"tells what a call does and which options it takes", L"サブコマンドの働きとオプションを表示します"},
    {L"tells the program's version", L"プログラムのバージョンを表示します"},
    {L"prints the manual page, for man(1)", L"マニュアルページを出力します（man(1) 用）"},
    {L"prints the script by which a shell completes the program's calls, options and files",
     L"サブコマンド、オプション、ファイルをシェルで補完するためのスクリプトを出力します"},
    {L"please name the shell: bash, zsh or fish", L"シェルを指定してください: bash、zsh、fish のいずれか"},
    {L"please name one drawing", L"図面を 1 つ指定してください"},
    {L"please name the picture: --out FILE.svg or --out FILE.png",
     L"画像ファイルを指定してください: --out FILE.svg または --out FILE.png"},
    {L"a picture is a file *.svg or *.png", L"画像は *.svg または *.png のファイルです"},
    {L"writes a picture of a drawing, with lineweights, linetypes, fonts, hatch patterns and viewports",
     L"図面を画像にします。線の太さ、線種、字体、ハッチングのパターン、ビューポートも表示します"},
    {L"What the picture does not show is told on standard error. Fonts and files of shapes are looked for "
     L"beside "
     L"the drawing, in the folders that KIV_SUPPORT_PATH in the environment lists, in the program's own, and "
     L"among "
     L"the system's fonts.",
     L"画像に表示できないものは標準エラー出力に表示します。フォントとシェイプ "
     L"ファイルは、図面のフォルダー、環境変数 "
     L"KIV_SUPPORT_PATH のフォルダー、プログラムのフォルダー、システムのフォントの順に探します。"},
    // options
    {L"the conversion specification", L"変換指定ファイル（CVT ファイル）"},
    {L"the picture; its extension tells which kind it becomes", L"画像ファイル。拡張子で種類が決まります"},
    {L"the layout to show, Model for model space; without it the space that is current in the drawing",
     L"表示するレイアウト。モデル空間は Model。省略すると図面で現在の空間"},
    {L"the width in pixels, 16 to 20000, without it 1600; the height follows",
     L"幅 (ピクセル)。16 から 20000 まで、省略すると 1600。高さは図面に合わせます"},
    {L"mark what is not as it is in the drawing OTHER", L"図面 OTHER と異なる図形に印を付けます"},
    {L"the folder for the converted drawings, which is made when it is missing; a.dxf becomes DIR/a.DXF",
     L"変換した図面の保存先フォルダ。ない場合は作成します。a.dxf は DIR/a.DXF になります"},
    {L"the format to save; without it a drawing keeps its own",
     L"保存する形式。省略すると元の形式のままです"},
    {L"what to do with block references: 0 convert the references (default), 1 convert what their "
     L"definitions "
     L"hold, 2 both",
     L"ブロック参照の扱い: 0 参照を変換（既定）、1 定義の中身を変換、2 両方"},
    {L"convert objects on locked layers too; the layers are locked again afterwards",
     L"ロックされた画層の図形も変換します。画層は変換後に再びロックします"},
    {L"write the conversion log, a CSV file in code page 932, into DIR",
     L"変換ログ（コードページ 932 の CSV ファイル）を DIR に書き出します"},
    {L"convert also the drawings that FILE names, one a line, or with a zero byte behind each; - is standard "
     L"input",
     L"FILE に名前を挙げた図面も変換します。1 行に 1 つ、または名前の後ろに 0 "
     L"のバイトを付けて書きます。- は標準入力です"},
    {L"convert the drawings of folders that are given and of all below them; their folders are made "
     L"below DIR",
     L"指定したフォルダとその下のすべてのフォルダの図面を変換します。同じフォルダ構成を DIR "
     L"の下に作成します"},
    {L"convert every N-th drawing only, beginning with the I-th: one of N machines that share the work",
     L"I 番目から N 枚ごとに 1 枚の図面だけを変換します。N 台のコンピュータで作業を分担するときに使います"},
    {L"skip drawings whose converted file is newer than the drawing, the CVT file and the text search lists "
     L"beside it",
     L"変換後のファイルが、元の図面、CVT ファイル、同じフォルダの文字検索リストより新しい図面を省きます"},
    {L"how many drawings to convert at a time, 1 to 256; without it as many as there are processors to use",
     L"同時に変換する図面の数（1～256）。省略すると使用できるプロセッサの数になります"},
    {L"give up a drawing that takes longer, and go on with the others",
     L"これより時間のかかる図面をあきらめ、残りの図面を続けます"},
    {L"do not wait until converted drawings have reached the disk: faster, but a power cut can damage them",
     L"変換した図面がディスクに書き込まれるのを待ちません。速くなりますが、停電で図面が壊れることがあります"},
    {L"say what would change, setting by setting, and write nothing; --out is not needed",
     L"何が変わるかを設定ごとに表示し、何も書き込みません。--out は不要です"},
    {L"list each change, entity by entity", L"変更を図形ごとに表示します"},
    {L"write a report of the batch: a page with pictures (.html), or the same facts for programs (.json)",
     L"処理の報告を書き出します。画像付きのページ（.html）、またはプログラム用の同じ内容（.json）"},
    {L"the name of a report ends in .html or .json",
     L"報告のファイル名は .html か .json で終わる必要があります"},
    {L"a handle is a hexadecimal number, such as 1A3F", L"ハンドルは 1A3F のような 16 進数です"},
    {L"please name two drawings, the one before and the one after",
     L"変換前と変換後の 2 つの図面を指定してください"},
    {L"tell of this entity alone: which condition of which setting it failed",
     L"この図形だけについて、どの設定のどの条件に合わなかったかを表示します"},
    {L"what to do with block references, as in convert", L"ブロック参照の扱い（convert と同じ）"},
    {L"as in convert", L"convert と同じ"},
    {L"write the facts as JSON", L"結果を JSON で出力します"},
    {L"write the differences as JSON", L"違いを JSON で出力します"},
    {L"tells of each setting how many entities its conditions let pass and what its results change",
     L"設定ごとに、条件に合う図形の数と変更される内容を表示します"},
    {L"tells how two drawings differ, entity by entity", L"2 つの図面の違いを図形ごとに表示します"},
    {L"The exit status is 0 when they do not differ, 1 when they do, 2 when one cannot be read.",
     L"終了ステータスは、違いがなければ 0、あれば 1、読めない図面があれば 2 です。"},
};

}  // namespace

std::span<const Translation> japaneseOfOptions() { return kRows; }

}  // namespace kivcli
