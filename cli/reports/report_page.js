(function () {
  'use strict';
  var data = JSON.parse(document.getElementById('data').textContent), w = data.words;
  var status = [w.converted, w.withProblems, w.notConverted];
  function make(tag, parent, text, cls) {
    var e = document.createElement(tag);
    if (text !== undefined) e.textContent = text;
    if (cls) e.className = cls;
    if (parent) parent.appendChild(e);
    return e;
  }
  function number(n) { return n.toLocaleString(document.documentElement.lang); }
  function cell(row, n) { return make('td', row, number(n), n ? 'num' : 'num zero'); }

  function totals() {
    var t = data.totals, box = document.getElementById('totals');
    [[w.drawings, t.drawings], [w.converted, t.converted], [w.withProblems, t.withProblems],
     [w.notConverted, t.notConverted], [w.entities, t.changedEntities],
     [w.records, t.changedRecords + t.changedOthers]].forEach(function (p) {
      var d = make('div', box);
      make('b', d, number(p[1]));
      make('span', d, p[0]);
    });
  }

  // A table whose columns sort it.
  function head(table, columns, sort) {
    var row = make('tr', make('thead', table));
    columns.forEach(function (c, i) {
      var th = make('th', row, c.title, c.numeric ? 'num' : '');
      th.tabIndex = 0;
      function press() {
        var first = c.numeric ? -1 : 1;
        var isFirst = th.getAttribute('aria-sort') !== (first > 0 ? 'ascending' : 'descending');
        var direction = isFirst ? first : -first;
        Array.prototype.forEach.call(row.children, function (o) { o.removeAttribute('aria-sort'); });
        th.setAttribute('aria-sort', direction > 0 ? 'ascending' : 'descending');
        sort(c.key, direction);
      }
      th.addEventListener('click', press);
      th.addEventListener('keydown', function (e) { if (e.key === 'Enter') press(); });
    });
    return make('tbody', table);
  }
  function sorted(list, key, direction) {
    var order = new Intl.Collator(document.documentElement.lang, { numeric: true });
    return list.slice().sort(function (a, b) {
      var x = key(a), y = key(b);
      return direction * (typeof x === 'string' ? order.compare(x, y) : x - y);
    });
  }

  function settings() {
    var table = document.getElementById('settings');
    var body = head(table, [
      { title: w.setting, key: function (s) { return s.at; } },
      { title: w.hits, numeric: true, key: function (s) { return s.hits; } },
      { title: w.changed, numeric: true, key: function (s) { return s.changed; } },
      { title: w.refused, numeric: true, key: function (s) { return s.refused; } },
      { title: w.locked, numeric: true, key: function (s) { return s.locked; } },
      { title: w.inDrawings, numeric: true, key: function (s) { return s.drawings; } }
    ], function (key, direction) { fill(sorted(data.settings, key, direction)); });
    data.settings.forEach(function (s, i) { s.at = i; });
    function fill(list) {
      body.textContent = '';
      list.forEach(function (s) {
        var row = make('tr', body);
        make('td', row, s.title);
        [s.hits, s.changed, s.refused, s.locked, s.drawings].forEach(function (n) { cell(row, n); });
      });
    }
    fill(data.settings);
  }

  function picture(parent, title, bytes) {
    var figure = make('figure', parent);
    make('figcaption', figure, title);
    if (!bytes) { make('div', figure, w.noPicture, 'zero'); return; }
    var image = make('img', figure);
    image.alt = title;
    image.src = 'data:image/png;base64,' + bytes;
  }
  function details(r) {
    var row = make('tr', null, undefined, 'more'), td = make('td', row);
    td.colSpan = 5;
    if (r.o) make('div', td, '\u2192 ' + r.o, 'count');
    if (r.p.length) {
      var list = make('ul', td);
      r.p.forEach(function (p) { make('li', list, p); });
    }
    if (r.a || r.b) {
      var pair = make('div', td, undefined, 'pair');
      picture(pair, w.before, r.b);
      picture(pair, w.after, r.a);
    }
    if (r.m) {
      var remarks = make('ul', td, undefined, 'count');
      r.m.forEach(function (m) { make('li', remarks, m); });
    }
    var facts = make('ul', td);
    r.f.forEach(function (f) {
      make('li', facts, data.settings[f[0]].title + ' \u2014 ' + w.hits + ' ' + number(f[1]) + ', ' +
           w.changed + ' ' + number(f[2]));
    });
    if (!r.f.length) make('li', facts, w.nothing);
    return row;
  }
  function drawings() {
    var list = data.rows, wanted = document.getElementById('name'), state = document.getElementById('state');
    wanted.placeholder = w.filter;
    [w.all].concat(status).forEach(function (s, i) { make('option', state, s).value = i - 1; });
    var body = head(document.getElementById('drawings'), [
      { title: w.drawing, key: function (r) { return r.n; } },
      { title: w.status, key: function (r) { return r.s; } },
      { title: w.entities, numeric: true, key: function (r) { return r.e; } },
      { title: w.records, numeric: true, key: function (r) { return r.r; } },
      { title: w.problems, numeric: true, key: function (r) { return r.p.length; } }
    ], function (key, direction) { list = sorted(data.rows, key, direction); fill(); });
    function add(r, into) {
      var row = make('tr', into, undefined, 'row'), open = null;
      row.tabIndex = 0;
      make('td', row, r.n);
      make('td', row, status[r.s], 's' + r.s);
      [r.e, r.r, r.p.length].forEach(function (n) { cell(row, n); });
      function press() {
        if (open) { open.remove(); open = null; return; }
        open = details(r);
        row.after(open);
      }
      row.addEventListener('click', press);
      row.addEventListener('keydown', function (e) { if (e.key === 'Enter') press(); });
    }
    function fill() {
      var name = wanted.value.toLowerCase(), s = Number(state.value), shown = 0;
      var rows = document.createDocumentFragment();
      list.forEach(function (r) {
        if (s >= 0 && r.s !== s || name && r.n.toLowerCase().indexOf(name) < 0) return;
        add(r, rows);
        ++shown;
      });
      body.textContent = '';
      body.appendChild(rows);
      document.getElementById('shown').textContent =
        w.shown.replace('%1', number(shown)).replace('%2', number(data.rows.length));
    }
    wanted.addEventListener('input', fill);
    state.addEventListener('change', fill);
    fill();
    if (location.hash === '#first' && body.firstChild) body.firstChild.click();
  }
  // What a person looks for first; the table of drawings has them all.
  function problems() {
    var most = 30, bad = data.rows.filter(function (r) { return r.s > 0; });
    bad.sort(function (a, b) { return b.s - a.s; });
    if (!bad.length) { document.getElementById('s-problems').remove(); return; }
    var body = make('tbody', document.getElementById('problems'));
    bad.slice(0, most).forEach(function (r) {
      var row = make('tr', body), list = make('ul', make('td', row, r.n));
      make('td', row, status[r.s], 's' + r.s);
      r.p.forEach(function (p) { make('li', list, p); });
    });
    if (bad.length > most) {
      var last = make('td', make('tr', body), w.more.replace('%1', number(bad.length - most)), 'count');
      last.colSpan = 2;
    }
  }
  function heads() {
    var places = document.getElementById('places');
    [['s-problems', w.badDrawings], ['s-drawings', w.drawings], ['s-settings', w.settings]].forEach(function (p) {
      var section = document.getElementById(p[0]);
      if (!section) return;
      section.querySelector('h2').textContent = p[1];
      make('a', places, p[1]).href = '#' + p[0];
    });
  }
  totals();
  problems();
  heads();
  drawings();
  settings();
})();
